#pragma once

#include "speech/EngineProgram.h"
#include "speech/SpeechEngine.h"

namespace repvolta {

/// espeak-ng with its own voices of many languages.
class EspeakEngine : public SpeechEngine {
 public:
  explicit EspeakEngine(EngineProgram program) : program_(std::move(program)) {}

  std::vector<EngineVoice> Voices() override;
  Sound Speak(const std::string& text, const EngineVoice& voice, double slowness) override;

 private:
  EngineProgram program_;
};

}  // namespace repvolta
