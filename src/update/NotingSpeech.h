#pragma once

#include <string>
#include <vector>

#include "platform/Clock.h"
#include "speech/SpeechSynthesizer.h"

namespace repvolta {

/// Speaks as another synthesizer does, and notes of each clip of a name that it speaks into the
/// program directory, which must be current, what was said by whom and when.
class NotingSpeech : public SpeechSynthesizer {
 public:
  /// Removes the half of a note amid which an update was killed.
  NotingSpeech(SpeechSynthesizer& speech, const Clock& clock);

  std::vector<std::string> VoiceNames() override { return speech_.VoiceNames(); }
  void SpeakToFile(const SpeechRequest& request) override;
  std::string LastVoice() const override { return speech_.LastVoice(); }

 private:
  SpeechSynthesizer& speech_;
  const Clock& clock_;
};

}  // namespace repvolta
