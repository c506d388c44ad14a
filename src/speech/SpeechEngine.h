#pragma once

#include <string>
#include <vector>

#include "sound/Sound.h"

namespace repvolta {

struct EngineVoice {
  std::string name;  // as the user sees it
  std::string id;    // as the engine knows it
};

/// A program that speaks.
class SpeechEngine {
 public:
  virtual ~SpeechEngine() = default;

  /// The voices that are installed, in their order; none when the engine is not installed.
  virtual std::vector<EngineVoice> Voices() = 0;

  /// The text, spoken `slowness` times as slowly as usual (1/3 .. 3). Throws SpeechError when there
  /// is nothing to say, or the engine fails, hangs or gives silence.
  virtual Sound Speak(const std::string& text, const EngineVoice& voice, double slowness) = 0;
};

}  // namespace repvolta
