#include <algorithm>
#include <gtest/gtest.h>

#include "clips/ClipChecks.h"
#include "clips/ClipLists.h"
#include "clips/ClipMaker.h"
#include "platform/QtChildProcesses.h"
#include "speech/EspeakEngine.h"

namespace repvolta {
namespace {

struct Language {
  const char* list;
  const char* voice;
};

struct OtherLanguagesJudged : testing::TestWithParam<Language> {};

/// The line of the shipped list for a clip.
ClipWords Line(const std::string& file) {
  const auto clips =
      ReadWordList(REPVOLTA_DATA + std::string(OtherLanguagesJudged::GetParam().list));
  return *std::ranges::find(clips, file, &ClipWords::file);
}

TEST_P(OtherLanguagesJudged, AreSpokenByTheVoiceOfTheLanguage) {
  TemporaryFolder folder;
  QtChildProcesses processes;
  EspeakEngine espeak(EngineProgram(processes, "espeak-ng"));
  const NamedEngines engines = {{"espeak-ng", &espeak}};
  const auto make = [&](const char* voice, const std::string& into) {
    MakeClips(FindSpeaker(engines, {.engine = "", .voice = voice}), {Line("200.wav")}, into);
  };

  make(GetParam().voice, "voice");
  make("en", "english");

  ExpectClip("voice/200.wav");
  EXPECT_NE(GetFile("voice/200.wav"), GetFile("english/200.wav"));
}

INSTANTIATE_TEST_SUITE_P(OfEachLanguage, OtherLanguagesJudged,
                         testing::Values(Language{"words/german.txt", "de"},
                                         Language{"words/french.txt", "fr"},
                                         Language{"words/spanish.txt", "es"}));

}  // namespace
}  // namespace repvolta
