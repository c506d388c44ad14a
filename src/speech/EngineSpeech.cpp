#include "speech/EngineSpeech.h"

#include <algorithm>
#include <cmath>

#include "base/WholeFile.h"
#include "speech/EspeakEngine.h"
#include "speech/FliteEngine.h"
#include "speech/SoundFormats.h"

namespace repvolta {
namespace {

/// Three times as slow at -10, three times as fast at 10; the steps between sound equal.
double Slowness(int rate) { return std::pow(3.0, -std::clamp(rate, -10, 10) / 10.0); }

const WavFormat& FormatAt(int position) {
  if (position < 0 || position >= std::ssize(kSoundFormats)) {
    throw SpeechError("There is no sound format number " + std::to_string(position));
  }
  return kSoundFormats[static_cast<std::size_t>(position)].format;
}

}  // namespace

std::vector<std::string> EngineSpeech::VoiceNames() {
  std::vector<std::string> names;
  for (const auto& engine : engines_) {
    for (const EngineVoice& voice : engine->Voices()) names.push_back(voice.name);
  }
  return names;
}

void EngineSpeech::SpeakToFile(const SpeechRequest& request) {
  const WavFormat& format = FormatAt(request.format);
  Sound sound = Speak(request);
  Scale(sound, static_cast<float>(std::clamp(request.volume, 0, 100)) / 100.0F);
  WriteWholeFile(request.file, EncodeWav(sound, format));
}

Sound EngineSpeech::Speak(const SpeechRequest& request) {
  int position = request.voice;
  // An engine is asked for its voices only if no engine before it has the wanted one.
  for (const auto& engine : engines_) {
    if (position < 0) break;
    const std::vector<EngineVoice> voices = engine->Voices();
    if (position < std::ssize(voices)) {
      const EngineVoice& voice = voices[static_cast<std::size_t>(position)];
      lastVoice_ = voice.name;
      return engine->Speak(request.text, voice, Slowness(request.rate));
    }
    position -= static_cast<int>(voices.size());
  }
  throw SpeechError("There is no speech voice number " + std::to_string(request.voice) +
                    "; is a speech engine installed?");
}

SpeechEngines InstalledEngines(ChildProcesses& processes) {
  SpeechEngines engines;
  engines.push_back(std::make_unique<FliteEngine>(EngineProgram(processes, "flite")));
  engines.push_back(std::make_unique<EspeakEngine>(EngineProgram(processes, "espeak-ng")));
  return engines;
}

}  // namespace repvolta
