#pragma once

#include <functional>
#include <memory>
#include <thread>

#include "platform/ChildProcess.h"
#include "platform/Mailbox.h"
#include "speech/BackgroundSpeech.h"

namespace repvolta {

/// Speaks in a thread of its own. Stopping kills the engine, which takes at most a moment. Needs a
/// QCoreApplication.
class EngineBackgroundSpeech : public BackgroundSpeech {
 public:
  /// Makes the synthesizer of a thread, which runs its programs by the given processes.
  using Make = std::function<std::unique_ptr<SpeechSynthesizer>(ChildProcesses&)>;

  explicit EngineBackgroundSpeech(Make make) : make_(std::move(make)) {}

  void Speak(const SpeechRequest& request, Done done) override;
  void Stop() override;

 private:
  void Tell(int turn, const std::string& failure);

  Make make_;
  Done done_;
  int turn_ = 0;  // counts what was begun or stopped
  Mailbox mailbox_;
  std::jthread thread_;  // ends before the others
};

}  // namespace repvolta
