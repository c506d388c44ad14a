#include <QCoreApplication>
#include <QDeadlineTimer>
#include <cmath>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/ClipOrigins.h"
#include "clips/VoiceLevel.h"
#include "editing/SayDifferently.h"
#include "platform/QtChildProcesses.h"
#include "sound/WavReader.h"
#include "speech/EngineBackgroundSpeech.h"
#include "speech/EngineSpeech.h"
#include "update/UpdateLock.h"

#include "fakes/FakeSound.h"
#include "support/EditorFixture.h"
#include "support/ToneClip.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr int kLimit = 30000;  // milliseconds

const SayableName kOhp{.file = "exercise/OHP.WAV", .name = "OHP"};
const WayToSay kOverhead{.text = "Overhead Press", .voice = 1, .rate = -2};

/// A program directory whose words are as loud as -18 LUFS or another level.
class SayDifferentlyTest : public EditorFixture {
 protected:
  SayDifferentlyTest() { fs::create_directories("voice/exercise"); }

  static void PutWords(float level) {
    for (const char* word : {"1", "2", "3", "4", "5", "6"}) {
      PutFile(std::string("voice/") + word + ".wav", AsText(ToneClip(level)));
    }
  }

  void SpeakAs(const Bytes& sound) { backgroundSpeech.End(sound); }

  static ClipOrigin OriginOf(const std::string& file) {
    return ClipOrigins("").Of(file, GetFile("voice/" + file));
  }

  std::vector<std::string> NamesOf(const std::string& clip = "") const {
    std::vector<std::string> names;
    for (const SayableName& name : SayableNames(state, clip)) names.push_back(name.name);
    return names;
  }

  FakeSoundPlayer player;
  FakeBackgroundSpeech backgroundSpeech;
  VoiceServices services{
      .editor = editor, .player = player, .speech = backgroundSpeech, .output = [] {
        return ChosenOutput{1, "Headphones"};
      }};
  int changes = 0;
  SayDifferently saying{services, [this] { ++changes; }};
};

TEST_F(SayDifferentlyTest, KnowsTheNamesOfTheWorkoutAndOfTheClips) {
  AddNewExercise("RDL");
  AddNewExercise("squat");
  AddNewExercise("Clean/Jerk");
  for (const char* clip : {"Squat", "Bench Press"}) {
    PutFile(std::string("voice/exercise/") + clip + ".WAV", "clip");
  }
  EXPECT_THAT(NamesOf(), ElementsAre("Bench Press", "Clean/Jerk", "RDL", "squat"));
  EXPECT_EQ(SayableNames(state, "").at(1).file, "exercise/Clean_Jerk.WAV");
}

TEST_F(SayDifferentlyTest, KnowsAWordThatIsAskedFor) {
  EXPECT_THAT(NamesOf("300.wav"), ElementsAre("three hundred"));
}

TEST_F(SayDifferentlyTest, BeginsWithTheNameAndTheChosenVoice) {
  state.Voice = {.Voice = 1, .Rate = 3};
  EXPECT_EQ(saying.LastWayOf(kOhp), (WayToSay{.text = "OHP", .voice = 1, .rate = 3}));
}

TEST_F(SayDifferentlyTest, BeginsWithWhatWasSaidLast) {
  saying.Keep(kOhp, kOverhead);
  SpeakAs(ToneClip(0.1F));
  EXPECT_EQ(saying.LastWayOf(kOhp), kOverhead);
}

TEST_F(SayDifferentlyTest, PlaysWhatItHasSpokenAsItWouldBeKept) {
  PutWords(0.05F);
  saying.Listen(kOhp, kOverhead);
  EXPECT_TRUE(saying.IsBusy());
  EXPECT_EQ(saying.Notice(), "\"Overhead Press\" is being spoken.");
  const SpeechRequest& request = backgroundSpeech.requests.at(0);
  EXPECT_EQ(request.text, "Overhead Press");
  EXPECT_EQ(request.voice, 1);
  EXPECT_EQ(request.rate, -2);
  SpeakAs(ToneClip(0.8F));
  EXPECT_EQ(saying.Notice(), "\"Overhead Press\" is heard.");
  EXPECT_THAT(player.outputs, ElementsAre("Headphones"));
  const Sound played = ReadWav(player.played.at(0));
  EXPECT_NEAR(JoinedLoudness(std::span(&played, 1)), LoudnessOfVoice("voice/"), 1);
  player.End();
  EXPECT_FALSE(saying.IsBusy());
  EXPECT_EQ(saying.Notice(), "");
}

TEST_F(SayDifferentlyTest, ChangesNothingByListening) {
  PutFile("voice/exercise/OHP.WAV", "as it was");
  saying.Listen(kOhp, kOverhead);
  SpeakAs(ToneClip(0.1F));
  player.End();
  saying.Stop();
  EXPECT_EQ(GetTextFile("voice/exercise/OHP.WAV"), "as it was");
  EXPECT_FALSE(fs::exists("voices"));
}

TEST_F(SayDifferentlyTest, KeepsWhatWasHeardWithoutSpeakingAgain) {
  saying.Listen(kOhp, kOverhead);
  SpeakAs(ToneClip(0.1F));
  saying.Keep(kOhp, kOverhead);
  EXPECT_EQ(backgroundSpeech.requests.size(), 1U);
  EXPECT_EQ(GetFile("voice/exercise/OHP.WAV"), player.played.at(0));
  EXPECT_EQ(OriginOf(kOhp.file), (ClipOrigin{.owner = ClipOwner::kComputer,
                                             .day = "2007-03-25",
                                             .text = "Overhead Press",
                                             .voice = "second",
                                             .rate = -2}));
  EXPECT_EQ(saying.Notice(), "\"OHP\" is said so from now on.");
}

TEST_F(SayDifferentlyTest, SpeaksAgainWhatIsToBeSaidInAnotherWay) {
  saying.Listen(kOhp, kOverhead);
  SpeakAs(ToneClip(0.1F));
  saying.Keep(kOhp, {.text = "Military Press", .voice = 1, .rate = -2});
  EXPECT_EQ(backgroundSpeech.requests.size(), 2U);
  EXPECT_FALSE(fs::exists("voice/exercise/OHP.WAV"));
  SpeakAs(ToneClip(0.1F));
  EXPECT_EQ(OriginOf(kOhp.file).text, "Military Press");
}

TEST_F(SayDifferentlyTest, KeepsTheRecordingWhosePlaceItTakes) {
  PutFile("voice/exercise/ohp.wav", "my own");
  saying.Keep(kOhp, kOverhead);
  SpeakAs(ToneClip(0.1F));
  EXPECT_EQ(GetTextFile("voices/My recordings/exercise/OHP.WAV"), "my own");
  EXPECT_EQ(saying.Notice(),
            "\"OHP\" is said so from now on; your recording is kept in the voice \"My "
            "recordings\".");
  EXPECT_EQ(OriginOf("exercise/ohp.wav").text, "Overhead Press");
}

TEST_F(SayDifferentlyTest, LeavesTheWorkoutAsItIs) {
  AddNewExercise("OHP");
  const Bytes before = GetFile("workouts/Monday.RPV");
  saying.Keep(kOhp, kOverhead);
  SpeakAs(ToneClip(0.1F));
  EXPECT_EQ(GetFile("workouts/Monday.RPV"), before);
  EXPECT_EQ(state.Workout[0].ExerciseName.Trimmed(), "OHP");
}

TEST_F(SayDifferentlyTest, KeepsNamesOfAllKinds) {
  for (const std::string& name :
       {std::string("Überzüge"), std::string("Clean/Jerk"), std::string("a  b"), std::string(".."),
        std::string("C:\\x"), std::string(60, 'x'), std::string("卧推")}) {
    state = {};
    state.ProgramDirectory = folder.Path();
    AddExercise(name);
    const std::vector<SayableName> names = SayableNames(state, "");
    const auto found = std::ranges::find(names, name, &SayableName::name);
    ASSERT_NE(found, names.end()) << name;
    saying.Keep(*found, kOverhead);
    SpeakAs(ToneClip(0.1F));
    EXPECT_TRUE(fs::exists("voice/" + found->file)) << name << saying.Notice();
  }
}

TEST_F(SayDifferentlyTest, SaysWhyNothingWasSpoken) {
  saying.Keep(kOhp, kOverhead);
  backgroundSpeech.End({}, "The speech engine crashed");
  EXPECT_EQ(saying.Notice(), "The speech engine crashed.");
  EXPECT_FALSE(saying.IsBusy());
}

TEST_F(SayDifferentlyTest, SaysThatSilenceIsNoName) {
  saying.Keep(kOhp, kOverhead);
  SpeakAs(ToneClip(0));
  EXPECT_THAT(saying.Notice(), HasSubstr("has only silence"));
  EXPECT_FALSE(fs::exists("voice/exercise/OHP.WAV"));
}

TEST_F(SayDifferentlyTest, AsksForAText) {
  saying.Listen(kOhp, {.text = "  "});
  EXPECT_THAT(backgroundSpeech.requests, IsEmpty());
  EXPECT_EQ(saying.Notice(), "Type how it is to be said.");
}

TEST_F(SayDifferentlyTest, ChangesNothingWhileAnUpdateRuns) {
  const UpdateLock update("");
  saying.Keep(kOhp, kOverhead);
  SpeakAs(ToneClip(0.1F));
  EXPECT_THAT(saying.Notice(), HasSubstr("An update is running. Nothing was changed"));
  EXPECT_FALSE(fs::exists("voice/exercise/OHP.WAV"));
}

TEST_F(SayDifferentlyTest, StopsWhatIsSpokenAndHeard) {
  saying.Listen(kOhp, kOverhead);
  saying.Stop();
  EXPECT_FALSE(backgroundSpeech.IsSpeaking());
  EXPECT_FALSE(saying.IsBusy());
  saying.Listen(kOhp, kOverhead);
  SpeakAs(ToneClip(0.1F));
  saying.Stop();
  EXPECT_FALSE(player.IsPlaying());
}

/// With the installed engines, flite and espeak-ng.
class SayDifferentlyJudged : public SayDifferentlyTest {
 protected:
  SayDifferentlyJudged() { PutWords(0.05F); }

  /// Returns what was said of the outcome.
  std::string KeepWith(const std::string& voice, const std::string& text) {
    QtChildProcesses installed;
    EngineSpeech engines(InstalledEngines(installed));
    EngineBackgroundSpeech real([](ChildProcesses& children) {
      return std::make_unique<EngineSpeech>(InstalledEngines(children));
    });
    Program withEngines{state, clock, random, processes, engines};
    const Editor own{.program = withEngines,
                     .log = run,
                     .host = run,
                     .screen = screen,
                     .dialogs = dialogs,
                     .progress = progress,
                     .pleaseWait = pleaseWait,
                     .runEvents = [] {}};
    const VoiceServices all{
        .editor = own, .player = player, .speech = real, .output = services.output};
    SayDifferently judged(all, [] {});
    const auto found = std::ranges::find(judged.Voices(), voice);
    if (found == judged.Voices().end()) return "no such voice";
    judged.Keep(kOhp, {.text = text, .voice = static_cast<int>(found - judged.Voices().begin())});
    const QDeadlineTimer limit(kLimit);
    while (judged.IsBusy() && !limit.hasExpired()) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
    }
    return judged.Notice();
  }

  static double LoudnessOfClip() {
    const Sound clip = ReadWav(GetFile("voice/exercise/OHP.WAV"));
    return JoinedLoudness(std::span(&clip, 1));
  }
};

TEST_F(SayDifferentlyJudged, KeepsWhatFliteSays) {
  EXPECT_EQ(KeepWith("English (slt) - flite", "Overhead Press"), "\"OHP\" is said so from now on.");
  EXPECT_NEAR(LoudnessOfClip(), LoudnessOfVoice("voice/"), 1);
  EXPECT_EQ(OriginOf(kOhp.file).voice, "English (slt) - flite");
}

TEST_F(SayDifferentlyJudged, KeepsWhatEspeakSaysInAnotherLanguage) {
  EXPECT_EQ(KeepWith("German - espeak-ng", "Überkopfdrücken"), "\"OHP\" is said so from now on.");
  EXPECT_NEAR(LoudnessOfClip(), LoudnessOfVoice("voice/"), 1);
  EXPECT_EQ(OriginOf(kOhp.file).text, "Überkopfdrücken");
}

}  // namespace
}  // namespace repvolta
