#include "speech/EspeakEngine.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include "base/Text.h"
#include "speech/SpeechText.h"

namespace repvolta {
namespace {

constexpr double kUsualWordsPerMinute = 175;
constexpr double kFewestWordsPerMinute = 80;  // it treats lower values as this one

/// The voice in a line of the list: priority, language, gender, name, file, other languages. The
/// name stays empty for a voice of another engine and for a variant of another voice.
EngineVoice VoiceInLine(const std::string& line) {
  std::istringstream columns(line);
  std::string priority, language, gender, name, file;
  if (!(columns >> priority >> language >> gender >> name >> file)) return {};
  if (file.starts_with("mb/") || file.starts_with("!v/")) return {};
  std::replace(name.begin(), name.end(), '_', ' ');
  return {std::string(TrimBlanks(name)) + " - espeak-ng", file};
}

}  // namespace

std::vector<EngineVoice> EspeakEngine::Voices() {
  std::istringstream list(program_.Output({"--voices"}));
  std::string line;
  std::getline(list, line);  // the headings
  std::vector<EngineVoice> voices;
  while (std::getline(list, line)) {
    EngineVoice voice = VoiceInLine(line);
    if (!voice.name.empty()) voices.push_back(std::move(voice));
  }
  return voices;
}

Sound EspeakEngine::Speak(const std::string& text, const EngineVoice& voice, double slowness) {
  const double wanted = kUsualWordsPerMinute / slowness;
  const double spoken = std::max(wanted, kFewestWordsPerMinute);
  const Sound sound = program_.Speak(SpokenText(text), [&](const EngineProgram::Files& files) {
    return std::vector<std::string>{
        "-v", voice.id, "-s", std::to_string(std::lround(spoken)), "-w", files.sound, "--stdin"};
  });
  return Stretch(sound, spoken / wanted);
}

}  // namespace repvolta
