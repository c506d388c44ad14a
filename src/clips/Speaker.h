#pragma once

#include <string>
#include <vector>

#include "speech/SpeechEngine.h"

namespace repvolta {

struct NamedEngine {
  std::string name;  // of its program: "flite"
  SpeechEngine* engine;
};

/// The engines in the order in which a voice is looked for. The first one speaks when no other is
/// wanted.
using NamedEngines = std::vector<NamedEngine>;

/// What a person asks for; "" where it is left open.
struct VoiceChoice {
  std::string engine;
  std::string voice;
};

struct Speaker {
  SpeechEngine* engine;
  EngineVoice voice;
};

/// The engine and the voice for a choice. A voice is named as the window names it, with or without
/// its engine, or by the engine's own name for it or the last part of that: "German - espeak-ng",
/// "german", "gmw/de", "de". Throws ClipError.
Speaker FindSpeaker(const NamedEngines& engines, const VoiceChoice& choice);

/// The shortest name by which FindSpeaker knows a voice: "de".
std::string ShortName(const EngineVoice& voice);

}  // namespace repvolta
