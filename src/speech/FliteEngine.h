#pragma once

#include "speech/EngineProgram.h"
#include "speech/SpeechEngine.h"

namespace repvolta {

/// flite with its general English voices.
class FliteEngine : public SpeechEngine {
 public:
  explicit FliteEngine(EngineProgram program) : program_(std::move(program)) {}

  std::vector<EngineVoice> Voices() override;
  Sound Speak(const std::string& text, const EngineVoice& voice, double slowness) override;

 private:
  EngineProgram program_;
};

}  // namespace repvolta
