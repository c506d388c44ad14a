#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/ClipOrigins.h"
#include "base/ProgramFiles.h"
#include "voices/ChangeOfVoice.h"
#include "voices/KeptRecordings.h"
#include "voices/VoiceClips.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

constexpr const char* kDay = "2026-11-22";

/// The program says 1, 2 and "Squat" by itself; "Kim" has her own 1 and "Row".
class ChangingVoice : public testing::Test {
 protected:
  ChangingVoice() {
    for (const char* folder : {"program/", "voice/"}) {
      PutClip(folder + std::string("1.wav"), 'a');
      PutClip(folder + std::string("2.wav"), 'b');
      PutClip(folder + std::string("exercise/Squat.WAV"), 'c');
    }
    PutClip("voices/Kim/1.wav", 'k');
    PutClip("voices/Kim/exercise/Row.WAV", 'r');
  }

  /// Chooses a voice, and returns what was planned.
  ChangeOfVoice Use(const std::string& voice) {
    ChangeOfVoice plan = PlanChangeOfVoice(here_, {.voice = voice, .day = kDay, .loudness = {}});
    PutClips("", plan.change);
    here_.inUse = voice;
    return plan;
  }

  /// What the person or the computer has put in place since.
  static void Put(const std::string& clip, char letter, const ClipOrigin& origin) {
    PutClips("", {.clips = {{clip, ClipOf(letter), origin}}, .files = {}, .removed = {}});
  }

  static void Record(const std::string& clip, char letter) {
    Put(clip, letter, {.owner = ClipOwner::kOwn, .day = kDay});
  }

  static ClipOrigin OriginOf(const std::string& clip) {
    return ClipOrigins("").Of(clip, GetFile(kClipFolder + clip));
  }

  TemporaryFolder folder_;
  VoicesHere here_{.programVoice = "program/", .inUse = ""};
};

TEST_F(ChangingVoice, PutsItsClipsInPlaceAndThoseOfTheProgramWhereItHasNone) {
  const ChangeOfVoice plan = Use("Kim");
  EXPECT_EQ(GetFile("voice/1.wav"), ClipOf('k'));
  EXPECT_EQ(GetFile("voice/2.wav"), ClipOf('b'));
  EXPECT_EQ(GetFile("voice/exercise/Squat.WAV"), ClipOf('c'));
  EXPECT_EQ(GetFile("voice/exercise/Row.WAV"), ClipOf('r'));
  EXPECT_THAT(plan.lent, ElementsAre("2.wav"));
  EXPECT_EQ(plan.change.clips.size(), 2U);
  EXPECT_EQ(plan.kept, 0U);
}

TEST_F(ChangingVoice, SaysWhoseTheClipsAre) {
  Use("Kim");
  EXPECT_EQ(OriginOf("1.wav"), (ClipOrigin{.owner = ClipOwner::kOwn, .day = kDay, .voice = "Kim"}));
  Use("");
  EXPECT_EQ(OriginOf("1.wav").owner, ClipOwner::kProgram);
}

TEST_F(ChangingVoice, BackToTheProgramLeavesNamesThatItDoesNotHave) {
  Use("Kim");
  const ChangeOfVoice plan = Use("");
  EXPECT_EQ(GetFile("voice/1.wav"), ClipOf('a'));
  EXPECT_EQ(GetFile("voice/exercise/Row.WAV"), ClipOf('r'));
  EXPECT_EQ(plan.kept, 0U);
  EXPECT_THAT(plan.lent, IsEmpty());
  EXPECT_THAT(ListVoices(), ElementsAre("Kim"));
}

TEST_F(ChangingVoice, KeepsRecordingsThatWereMadeWithTheProgramsVoice) {
  Record("2.wav", 'x');
  Record("exercise/Hop.WAV", 'h');
  const ChangeOfVoice plan = Use("Kim");
  EXPECT_THAT(plan.keptIn, ElementsAre(kKeptRecordings));
  EXPECT_EQ(plan.kept, 2U);
  EXPECT_EQ(GetFile("voices/My recordings/2.wav"), ClipOf('x'));
  EXPECT_EQ(GetFile("voices/My recordings/exercise/Hop.WAV"), ClipOf('h'));
  EXPECT_EQ(GetFile("voice/2.wav"), ClipOf('b'));
  EXPECT_EQ(Use("").kept, 0U);
  Use(kKeptRecordings);
  EXPECT_EQ(GetFile("voice/2.wav"), ClipOf('x'));
}

TEST_F(ChangingVoice, KeepsRecordingsInTheVoiceForWhichTheyWereMade) {
  Use("Kim");
  Record("1.wav", 'y');
  Record("2.wav", 'x');
  EXPECT_THAT(Use("").keptIn, ElementsAre("Kim"));
  EXPECT_EQ(GetFile("voices/Kim/1.wav"), ClipOf('y'));
  EXPECT_EQ(GetFile("voices/Kim/2.wav"), ClipOf('x'));
  Use("Kim");
  EXPECT_EQ(GetFile("voice/1.wav"), ClipOf('y'));
}

TEST_F(ChangingVoice, NeverReplacesAnOlderRecordingOfOnesOwn) {
  PutClip("voices/My recordings/2.wav", 'o');
  Record("2.wav", 'x');
  EXPECT_THAT(Use("Kim").keptIn, ElementsAre("My recordings 2"));
  EXPECT_EQ(GetFile("voices/My recordings/2.wav"), ClipOf('o'));
  EXPECT_EQ(GetFile("voices/My recordings 2/2.wav"), ClipOf('x'));
}

TEST_F(ChangingVoice, ToOnesOwnRecordingsLeavesTheNewestInPlace) {
  PutClip("voices/My recordings/1.wav", 'o');
  Record("2.wav", 'x');
  const ChangeOfVoice plan = Use(kKeptRecordings);
  EXPECT_EQ(GetFile("voice/1.wav"), ClipOf('o'));
  EXPECT_EQ(GetFile("voice/2.wav"), ClipOf('x'));
  EXPECT_THAT(plan.lent, IsEmpty());
}

TEST_F(ChangingVoice, DoesNotKeepWhatTheComputerSpeaksAnew) {
  Put("exercise/Row.WAV", 'q', {.owner = ClipOwner::kComputer, .day = kDay, .text = "Row"});
  EXPECT_EQ(Use("Kim").kept, 0U);
  EXPECT_EQ(GetFile("voice/exercise/Row.WAV"), ClipOf('r'));
}

TEST_F(ChangingVoice, KeepsWhatTheComputerWasToldToSayDifferently) {
  Put("exercise/Row.WAV", 'q', {.owner = ClipOwner::kComputer, .day = kDay, .text = "Roh"});
  EXPECT_EQ(Use("Kim").kept, 1U);
  EXPECT_EQ(GetFile("voices/My recordings/exercise/Row.WAV"), ClipOf('q'));
}

TEST_F(ChangingVoice, KeepsNoClipThatIsOnlyLouderNow) {
  Put("1.wav", 'A', {.owner = ClipOwner::kProgram});
  EXPECT_EQ(Use("Kim").kept, 0U);
  Put("1.wav", 'K', {.owner = ClipOwner::kOwn, .day = kDay, .voice = "Kim"});
  EXPECT_EQ(Use("").kept, 0U);
  EXPECT_EQ(GetFile("voices/Kim/1.wav"), ClipOf('k'));
}

TEST_F(ChangingVoice, KeepsWhatIsLeftOfAVoiceThatIsGone) {
  Use("Kim");
  fs::remove_all("voices/Kim");
  here_.inUse = "";
  EXPECT_EQ(Use("").kept, 2U);
  EXPECT_EQ(GetFile("voices/My recordings/exercise/Row.WAV"), ClipOf('r'));
}

TEST_F(ChangingVoice, FindsClipsWhateverTheirCase) {
  fs::rename("voice/exercise/Squat.WAV", "voice/exercise/SQUAT.wav");
  PutClip("voices/Kim/Exercise.txt", 'x');
  PutClip("voices/Kim/exercise/squat.WAV", 's');
  Use("Kim");
  EXPECT_EQ(GetFile("voice/exercise/SQUAT.wav"), ClipOf('s'));
  EXPECT_FALSE(fs::exists("voice/exercise/squat.WAV"));
}

TEST_F(ChangingVoice, WithoutTheProgramsClipsLosesNothing) {
  here_.programVoice = "";
  EXPECT_THAT(Use("Kim").keptIn, ElementsAre(kKeptRecordings));
  EXPECT_EQ(GetFile("voices/My recordings/1.wav"), ClipOf('a'));
  EXPECT_EQ(GetFile("voice/2.wav"), ClipOf('b'));
}

TEST_F(ChangingVoice, HasTheClipsThatAreGivenToOthers) {
  Use("Kim");
  Record("exercise/Hop.WAV", 'h');
  EXPECT_THAT(ClipsOfVoice(here_, "Kim", ClipsToWrite::kOwn),
              ElementsAre(Pair("1.wav", ClipOf('k')), Pair("exercise/Hop.WAV", ClipOf('h')),
                          Pair("exercise/Row.WAV", ClipOf('r'))));
  EXPECT_EQ(ClipsOfVoice(here_, "Kim", ClipsToWrite::kAll).size(), 5U);
  EXPECT_THAT(ClipsOfVoice(here_, "", ClipsToWrite::kOwn), IsEmpty());
  EXPECT_EQ(ClipsOfVoice(here_, "", ClipsToWrite::kAll).at("1.wav"), ClipOf('a'));
}

TEST_F(ChangingVoice, IsToOneThatIsThere) {
  OptionLines options;
  EXPECT_EQ(VoiceInUse(options), "");
  repvolta::Put(options, kVoiceInUse, "Kim");
  EXPECT_EQ(VoiceInUse(options), "Kim");
  repvolta::Put(options, kVoiceInUse, "../voice");
  EXPECT_EQ(VoiceInUse(options), "");
}

}  // namespace
}  // namespace repvolta
