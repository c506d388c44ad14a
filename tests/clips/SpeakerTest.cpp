#include <gtest/gtest.h>

#include "clips/ClipChecks.h"
#include "clips/ClipLists.h"
#include "clips/Speaker.h"

namespace repvolta {
namespace {

class SpeakerChoice : public testing::Test {
 protected:
  SpeakerChoice() {
    flite_.voices = {{"English (rms) - flite", "rms"}, {"English (slt) - flite", "slt"}};
    espeak_.voices = {{"German - espeak-ng", "gmw/de"},
                      {"French (France) - espeak-ng", "roa/fr"},
                      {"English (America) - espeak-ng", "gmw/en-US"}};
  }

  std::string Chosen(const VoiceChoice& choice) { return FindSpeaker(engines_, choice).voice.id; }

  std::string WhyNot(const VoiceChoice& choice) {
    try {
      return "chosen: " + Chosen(choice);
    } catch (const ClipError& error) {
      return error.what();
    }
  }

  ToneEngine flite_;
  ToneEngine espeak_;
  NamedEngines engines_ = {{"flite", &flite_}, {"espeak-ng", &espeak_}};
};

TEST_F(SpeakerChoice, IsTheFirstVoiceOfTheFirstEngineWhenNothingIsWanted) {
  EXPECT_EQ(Chosen({}), "rms");
  EXPECT_EQ(FindSpeaker(engines_, {}).engine, &flite_);
}

TEST_F(SpeakerChoice, TakesAnyNameOfAVoice) {
  for (const char* name : {"gmw/de", "de", "German", "german - espeak-ng", "DE"}) {
    EXPECT_EQ(Chosen({.engine = "", .voice = name}), "gmw/de") << name;
  }
  EXPECT_EQ(Chosen({.engine = "", .voice = "slt"}), "slt");
  EXPECT_EQ(Chosen({.engine = "", .voice = "french (france)"}), "roa/fr");
  EXPECT_EQ(FindSpeaker(engines_, {.engine = "", .voice = "de"}).engine, &espeak_);
}

TEST_F(SpeakerChoice, LooksOnlyAtTheWantedEngine) {
  EXPECT_EQ(Chosen({.engine = "espeak-ng", .voice = ""}), "gmw/de");
  EXPECT_THROW(Chosen({.engine = "flite", .voice = "de"}), ClipError);
}

TEST_F(SpeakerChoice, TellsWhatThereIsNot) {
  flite_.voices.clear();
  EXPECT_EQ(WhyNot({}), "no voice of flite is installed");
  EXPECT_EQ(WhyNot({.engine = "flight", .voice = ""}),
            "there is no engine \"flight\"; there are flite and espeak-ng");
  EXPECT_EQ(WhyNot({.engine = "", .voice = "xx"}),
            "there is no voice \"xx\"; \"repvolta-voice voices\" lists all");
}

}  // namespace
}  // namespace repvolta
