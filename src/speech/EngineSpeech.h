#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/ChildProcess.h"
#include "speech/SpeechEngine.h"
#include "speech/SpeechSynthesizer.h"

namespace repvolta {

using SpeechEngines = std::vector<std::unique_ptr<SpeechEngine>>;

/// Speech by engines, whose voices are numbered one engine after the other.
class EngineSpeech : public SpeechSynthesizer {
 public:
  explicit EngineSpeech(SpeechEngines engines) : engines_(std::move(engines)) {}

  std::vector<std::string> VoiceNames() override;
  void SpeakToFile(const SpeechRequest& request) override;
  std::string LastVoice() const override { return lastVoice_; }

 private:
  Sound Speak(const SpeechRequest& request);

  SpeechEngines engines_;
  std::string lastVoice_;
};

/// flite, then espeak-ng, so that the first voice is the one of the recorded clips. `processes`
/// must outlive them.
SpeechEngines InstalledEngines(ChildProcesses& processes);

}  // namespace repvolta
