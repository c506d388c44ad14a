#pragma once

#include <string>
#include <vector>

#include "sound/Sound.h"

namespace repvolta {

struct EngineVoice {
  std::string name;  // as the user sees it
  std::string id;    // the engine's own name for it
};

/// A speech engine with its voices.
class SpeechEngine {
 public:
  virtual ~SpeechEngine() = default;

  /// The installed voices in the order in which they are offered; empty when the engine is not
  /// installed.
  virtual std::vector<EngineVoice> Voices() = 0;

  /// The text, spoken `slowness` times as slowly as usual (1/3 .. 3). Throws SpeechError when there
  /// is nothing to say, and when the engine fails, hangs or produces silence.
  virtual Sound Speak(const std::string& text, const EngineVoice& voice, double slowness) = 0;
};

}  // namespace repvolta
