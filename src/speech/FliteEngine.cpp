#include "speech/FliteEngine.h"

#include <array>
#include <set>
#include <sstream>

#include "speech/SpeechText.h"

namespace repvolta {
namespace {

/// The voice that is easiest to understand comes first. awb_time is left out: it can only say the
/// time of day and drops all other words.
constexpr std::array kGeneralVoices = {"rms", "slt", "awb", "kal16"};

/// With a decimal point in every locale.
std::string DecimalText(double value) {
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text << value;
  return text.str();
}

}  // namespace

std::vector<EngineVoice> FliteEngine::Voices() {
  std::istringstream list(program_.Output({"-lv"}));
  std::set<std::string> installed;
  for (std::string word; list >> word;) installed.insert(word);
  std::vector<EngineVoice> voices;
  for (const std::string id : kGeneralVoices) {
    if (installed.contains(id)) voices.push_back({"English (" + id + ") - flite", id});
  }
  return voices;
}

Sound FliteEngine::Speak(const std::string& text, const EngineVoice& voice, double slowness) {
  return program_.Speak(SpokenAscii(text), [&](const EngineProgram::Files& files) {
    return std::vector<std::string>{
        "-voice", voice.id,   "--setf", "duration_stretch=" + DecimalText(slowness),
        "-f",     files.text, "-o",     files.sound};
  });
}

}  // namespace repvolta
