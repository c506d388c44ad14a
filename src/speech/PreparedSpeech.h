#pragma once

#include <functional>
#include <future>
#include <memory>
#include <string>
#include <vector>

#include "platform/ChildProcess.h"
#include "speech/SpeechSynthesizer.h"

namespace repvolta {

/// Speech whose voices are listed from the beginning, in a thread of its own, while the program
/// prepares its window: the engines take a good part of the time of a start. Needs a
/// QCoreApplication.
class PreparedSpeech : public SpeechSynthesizer {
 public:
  using Make = std::function<std::unique_ptr<SpeechSynthesizer>(ChildProcesses&)>;

  /// `processes` must outlive the result; the thread runs its programs by processes of its own.
  PreparedSpeech(const Make& make, ChildProcesses& processes);

  /// The first call waits for the list that was begun; later ones list the voices anew.
  std::vector<std::string> VoiceNames() override;
  void SpeakToFile(const SpeechRequest& request) override { speech_->SpeakToFile(request); }

 private:
  std::unique_ptr<SpeechSynthesizer> speech_;
  std::future<std::vector<std::string>> begun_;
};

}  // namespace repvolta
