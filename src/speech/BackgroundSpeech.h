#pragma once

#include <functional>
#include <string>

#include "speech/SpeechSynthesizer.h"

namespace repvolta {

/// Speaks one text at a time while the caller goes on.
class BackgroundSpeech {
 public:
  virtual ~BackgroundSpeech() = default;

  /// The event loop calls it when the file is written (""), or with the reason why it is not.
  using Done = std::function<void(const std::string& failure)>;

  /// Stops what is being spoken and begins to speak into `request.file`, as
  /// SpeechSynthesizer::SpeakToFile does.
  virtual void Speak(const SpeechRequest& request, Done done) = 0;

  /// Ends the speaking, if there is some; its `done` is not called any more.
  virtual void Stop() = 0;
};

}  // namespace repvolta
