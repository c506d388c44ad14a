#include "clips/Speaker.h"

#include <algorithm>

#include "base/FileNames.h"
#include "base/Text.h"
#include "clips/ClipLists.h"

namespace repvolta {
namespace {

bool IsCalled(const EngineVoice& voice, const std::string& wanted) {
  const std::string withoutEngine = voice.name.substr(0, voice.name.rfind(" - "));
  const std::u32string folded = FoldCase(wanted);
  return std::ranges::any_of(
      std::vector<std::string>{voice.id, ShortName(voice), voice.name, withoutEngine},
      [&](const std::string& name) { return FoldCase(name) == folded; });
}

NamedEngines EnginesFor(const NamedEngines& engines, const VoiceChoice& choice) {
  if (choice.engine.empty() && choice.voice.empty()) return {engines.front()};
  if (choice.engine.empty()) return engines;
  std::string names;
  for (const NamedEngine& engine : engines) {
    if (engine.name == choice.engine) return {engine};
    names += (names.empty() ? "" : " and ") + engine.name;
  }
  throw ClipError("there is no engine \"" + choice.engine + "\"; there are " + names);
}

Speaker FirstVoice(const NamedEngine& engine) {
  const std::vector<EngineVoice> voices = engine.engine->Voices();
  if (voices.empty()) throw ClipError("no voice of " + engine.name + " is installed");
  return {engine.engine, voices.front()};
}

}  // namespace

Speaker FindSpeaker(const NamedEngines& engines, const VoiceChoice& choice) {
  const NamedEngines asked = EnginesFor(engines, choice);
  if (choice.voice.empty()) return FirstVoice(asked.front());
  for (const NamedEngine& engine : asked) {
    for (const EngineVoice& voice : engine.engine->Voices()) {
      if (IsCalled(voice, choice.voice)) return {engine.engine, voice};
    }
  }
  throw ClipError("there is no voice \"" + choice.voice +
                  "\"; \"repvolta-voice voices\" lists all");
}

std::string ShortName(const EngineVoice& voice) { return FileName(voice.id); }

}  // namespace repvolta
