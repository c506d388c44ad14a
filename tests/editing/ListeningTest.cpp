#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editing/Listening.h"
#include "instruction/VoiceInstruction.h"

#include "fakes/FakeSound.h"
#include "support/ClipBytes.h"
#include "support/ProgramFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

/// A workout of three exercises, of which "Zercher Hop" has no recording.
class ListeningTest : public ProgramFixture {
 protected:
  ListeningTest() {
    Byte number = 1;
    for (const char* clip : {"1", "set", "sets", "50", "5", "kilograms", "for", "10", "reps"}) {
      PutFile("voice/" + std::string(clip) + ".wav", ClipBytes({number, number}));
      ++number;
    }
    PutFile("voice/exercise/Squat.WAV", ClipBytes({0xFD, 0xFD}));
    PutFile("voice/exercise/Row.WAV", ClipBytes({0xFE, 0xFE}));
    state.Settings.IncludeWeightValues = kTrue;
    state.WorkoutFileName = "Monday.RPV";
    for (const char* name : {"Squat", "Zercher Hop", "Row"}) AddExercise(name);
  }

  /// What an update would write for the exercise as it is.
  Bytes Instruction(std::int16_t exercise) {
    GenerateHumanVoiceInstruction(state, exercise, "expected.wav", speech, run);
    return GetFile("expected.wav");
  }

  std::string Reported() const {
    return (listening.Heard() ? std::to_string(*listening.Heard()) + ": " : "-: ") +
           listening.Notice();
  }

  FakeSoundPlayer player;
  FakeBackgroundSpeech background;
  int current = 0;
  Listening listening{program,
                      {.player = player,
                       .speech = background,
                       .output = [] { return ChosenOutput{1, "Headphones"}; },
                       .current = [this] { return current; }}};
};

TEST_F(ListeningTest, PlaysWhatAnUpdateWouldWriteThroughTheChosenOutput) {
  AddSet(state.Workout[0], 50, 10);
  listening.Play(0);
  EXPECT_THAT(player.played, ElementsAre(Instruction(0)));
  EXPECT_THAT(player.outputs, ElementsAre("Headphones"));
  EXPECT_EQ(Reported(), "0: \"Squat\" is heard.");
}

TEST_F(ListeningTest, SaysTheValuesThatGrowTodayAndChangesNothing) {
  AddSet(state.Workout[0], 50, 10);
  state.Workout[0].SetIncrement1[0] = 5;
  state.Workout[0].SetFrequency1[0] = 7;
  const ExerciseRecord before = state.Workout[0];

  listening.Play(0);

  EXPECT_EQ(state.Workout[0], before);
  state.Workout[0].SetValue1[0] = 55;
  EXPECT_THAT(player.played, ElementsAre(Instruction(0)));
}

TEST_F(ListeningTest, SaysNoValuesWhenTheSettingIsOff) {
  AddSet(state.Workout[0], 50, 10);
  state.Settings.IncludeWeightValues = kFalse;
  listening.Play(0);
  EXPECT_THAT(player.played, ElementsAre(Instruction(0)));
}

TEST_F(ListeningTest, IsQuietAfterTheEnd) {
  listening.Play(0);
  player.End();
  EXPECT_EQ(Reported(), "-: ");
}

TEST_F(ListeningTest, LeavesNoFileWhenItIsQuiet) {
  listening.Play(0);
  EXPECT_TRUE(std::filesystem::exists(player.files[0]));
  player.End();
  EXPECT_FALSE(std::filesystem::exists(player.files[0]));
}

TEST_F(ListeningTest, StopsTheSound) {
  listening.Play(0);
  listening.Stop();
  EXPECT_FALSE(player.IsPlaying());
  EXPECT_EQ(Reported(), "-: ");
}

TEST_F(ListeningTest, TheFileIsGoneAfterAStop) {
  listening.Play(0);
  listening.Stop();
  EXPECT_FALSE(std::filesystem::exists(player.files[0]));
}

TEST_F(ListeningTest, SpeaksANameWithoutARecordingAndKeepsNoClip) {
  state.Voice = {.Voice = 1, .Rate = 2, .Volume = 80, .Format = 14};
  listening.Play(1);
  EXPECT_THAT(player.played, IsEmpty());
  EXPECT_EQ(Reported(), "1: The name \"Zercher Hop\" has no recording; it is being spoken.");
  ASSERT_THAT(background.requests, SizeIs(1));
  EXPECT_EQ(background.requests[0].text, "Zercher Hop");
  EXPECT_EQ(background.requests[0].voice, 1);

  background.End(ClipBytes(Bytes(100, 's')));

  EXPECT_EQ(Reported(), "1: \"Zercher Hop\" is heard.");
  EXPECT_FALSE(std::filesystem::exists("voice/exercise/Zercher Hop.WAV"));
  EXPECT_THAT(player.played, ElementsAre(Instruction(1)));
}

TEST_F(ListeningTest, TheSpeakingOfANameCanBeStopped) {
  listening.Play(1);
  listening.Stop();
  EXPECT_FALSE(background.IsSpeaking());
  EXPECT_EQ(Reported(), "-: ");
}

TEST_F(ListeningTest, ANameThatCannotBeSpokenIsTold) {
  listening.Play(1);
  background.End({}, "There is no speech engine");
  EXPECT_EQ(Reported(), "-: There is no speech engine.");
  EXPECT_TRUE(listening.HasFailed());
}

TEST_F(ListeningTest, AnOutputThatRefusesTheSpokenNameIsTold) {
  player.refusal = "This computer has no audio output.";
  listening.Play(1);
  background.End(ClipBytes(Bytes(100, 's')));
  EXPECT_EQ(Reported(), "-: This computer has no audio output.");
}

TEST_F(ListeningTest, ThrowsWhenTheSoundCannotBegin) {
  player.refusal = "This computer has no audio output.";
  EXPECT_THROW(listening.Play(0), SoundError);
  EXPECT_EQ(Reported(), "-: ");
}

TEST_F(ListeningTest, ThrowsForAnExerciseThatIsNotThere) {
  EXPECT_THROW(listening.Play(3), std::out_of_range);
  EXPECT_THROW(listening.Play(-1), std::out_of_range);
}

TEST_F(ListeningTest, ASoundThatBreaksOffIsTold) {
  listening.Play(0);
  player.End("The audio output \"Headphones\" is not there any more.");
  EXPECT_EQ(Reported(), "-: The audio output \"Headphones\" is not there any more.");
  EXPECT_TRUE(listening.HasFailed());
}

TEST_F(ListeningTest, TheNextInstructionForgetsAFailure) {
  listening.Play(0);
  player.End("The audio output \"Headphones\" is not there any more.");
  listening.Play(0);
  EXPECT_EQ(Reported(), "0: \"Squat\" is heard.");
  EXPECT_FALSE(listening.HasFailed());
}

TEST_F(ListeningTest, SaysWhichWordsAreMissingUntilTheNextInstruction) {
  AddSet(state.Workout[0], 7, 10);
  listening.Play(0);
  EXPECT_EQ(Reported(), "0: \"Squat\" is heard. voice/7.wav NOT FOUND.");
  player.End();
  EXPECT_EQ(Reported(), "-: voice/7.wav NOT FOUND.");
  EXPECT_FALSE(listening.HasFailed());
}

TEST_F(ListeningTest, SaysThatMoreSetsThanSlotsCannotBeHeard) {
  state.Workout[0].NumberOfSets = 18;
  listening.Play(0);
  EXPECT_THAT(Reported(), HasSubstr("Number 17 is outside 0 to 16."));
}

TEST_F(ListeningTest, AnotherExerciseTakesThePlaceOfTheOneThatIsHeard) {
  listening.Play(1);
  listening.Play(2);
  EXPECT_FALSE(background.IsSpeaking());
  EXPECT_EQ(Reported(), "2: \"Row\" is heard.");
}

TEST_F(ListeningTest, TheNextIsTheOneAfterTheCurrent) {
  current = 1;
  listening.PlayNext();
  EXPECT_EQ(listening.Heard(), 2);
}

TEST_F(ListeningTest, TheNextGoesOnFromTheOneThatWasHeardLast) {
  current = 1;
  listening.PlayCurrent();
  listening.PlayNext();
  listening.PlayNext();
  EXPECT_EQ(listening.Heard(), 0);
}

TEST_F(ListeningTest, TheNextBeginsAnewWhenAnotherExerciseBecameCurrent) {
  listening.PlayCurrent();
  listening.PlayNext();
  current = 1;
  listening.PlayNext();
  EXPECT_EQ(listening.Heard(), 2);
}

TEST_F(ListeningTest, StopsWhenTheExerciseThatIsHeardChanges) {
  AddSet(state.Workout[0], 50, 10);
  listening.Play(0);
  listening.StopIfChanged();
  EXPECT_EQ(listening.Heard(), 0);
  state.Workout[0].SetValue1[0] = 55;
  listening.StopIfChanged();
  EXPECT_FALSE(player.IsPlaying());
}

TEST_F(ListeningTest, GoesOnWhenAnotherExerciseChanges) {
  listening.Play(0);
  AddSet(state.Workout[2], 50, 10);
  listening.StopIfChanged();
  EXPECT_TRUE(player.IsPlaying());
}

TEST_F(ListeningTest, StopsWhenAnotherWorkoutHasTheSameExercise) {
  listening.Play(0);
  state.WorkoutFileName = "Tuesday.RPV";
  listening.StopIfChanged();
  EXPECT_FALSE(player.IsPlaying());
}

TEST_F(ListeningTest, StopsWhenTheExerciseIsGone) {
  listening.Play(2);
  state.NumberOfExercises = 2;
  listening.StopIfChanged();
  EXPECT_FALSE(player.IsPlaying());
}

TEST_F(ListeningTest, TellsEachWatcherOfEachChangeUntilItEnds) {
  std::vector<std::string> seen;
  std::vector<std::string> seenShortly;
  const auto watch = listening.OnChange([&] { seen.push_back(Reported()); });
  auto shortly = listening.OnChange([&] { seenShortly.push_back(Reported()); });
  listening.Play(0);
  shortly.reset();
  player.End();
  EXPECT_THAT(seen, ElementsAre("0: \"Squat\" is heard.", "-: "));
  EXPECT_THAT(seenShortly, ElementsAre("0: \"Squat\" is heard."));
}

TEST_F(ListeningTest, IsQuietWhenItEnds) {
  {
    Listening other(program, {player, background, [] { return ChosenOutput(); }, [] { return 0; }});
    other.Play(0);
  }
  EXPECT_FALSE(player.IsPlaying());
}

}  // namespace
}  // namespace repvolta
