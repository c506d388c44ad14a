#include "base/Numbers.h"
#include "editing/AnswerLines.h"
#include "editing/ExerciseEditing.h"
#include "editing/MusicEditing.h"
#include "editing/SetEditing.h"
#include "editing/SetValueEditing.h"
#include "editing/SettingsEditing.h"
#include "editing/WorkoutEditing.h"

#include "support/EditorFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// The exercise "Squat" with two sets, of which the second is 52.5 kg and 1 repetition.
class AnswerLines : public EditorFixture {
 protected:
  AnswerLines() {
    ExerciseRecord& exercise = AddNewExercise("Squat");
    exercise.NumberOfSets = 2;
    exercise.SetValue1[1] = 52.5;
    exercise.SetValue2[1] = 1;
    exercise.SetIncrement1[1] = 2.5;
    exercise.SetFrequency1[1] = 7;
    Show();
  }

  ExerciseRecord& Squat() { return state.Workout[0]; }

  std::string Now(SetColumn column) { return SetNumberHelp(Squat(), 1, column, clock).now; }
  std::string Kept(SetColumn column, std::string_view answer) {
    return SetNumberHelp(Squat(), 1, column, clock).kept(answer);
  }
};

TEST_F(AnswerLines, NameSetExerciseAndValueWithItsUnit) {
  EXPECT_EQ(Now(kSetList1), "Squat, set 2, Weight: 52.5 kilograms now.");
  EXPECT_EQ(Now(kSetList2), "Squat, set 2, Reps: 1 repetition now.");
  EXPECT_EQ(Now(kSetListInc1), "Squat, set 2, increment of Weight: 2.5 kilograms now.");
  EXPECT_EQ(Now(kSetListInc2), "Squat, set 2, increment of Reps: 0 repetitions now.");
  EXPECT_EQ(Now(kFreqList1), "Squat, set 2, frequency of Weight: 7 days now.");
  EXPECT_EQ(Now(kFreqList2), "Squat, set 2, frequency of Reps: 0 days now.");
}

TEST_F(AnswerLines, HaveTheUnitsOfTheSetTypeAndTheExercise) {
  struct {
    SetTypeNumber type;
    Flag units;
    const char* first;
    const char* second;
  } const kKinds[] = {
      {kWeightAndReps, kFalse, "9 kilograms", "9 repetitions"},
      {kWeightAndReps, kTrue, "9 pounds", "9 repetitions"},
      {kLevelAndTime, kFalse, "9", "9 minutes"},
      {kDistanceAndSpeed, kFalse, "9 kilometers", "9 kilometers per hour"},
      {kDistanceAndSpeed, kTrue, "9 miles", "9 miles per hour"},
      {kUserDefined, kFalse, "9", "9"},
  };
  for (const auto& kind : kKinds) {
    Squat().SetType = kind.type;
    Squat().Units = kind.units;
    EXPECT_EQ(Kept(kSetList1, "9"), std::string("Will be kept: ") + kind.first + ".");
    EXPECT_EQ(Kept(kSetListInc2, "9"), std::string("Will be kept: ") + kind.second + ".");
  }
}

TEST_F(AnswerLines, SayInWhichUnitsADistanceIsHeard) {
  Squat().SetType = kDistanceAndSpeed;
  EXPECT_EQ(Now(kSetList1), "Squat, set 2, Distance: 52.5 kilometers now. The voice says miles.");
  Squat().Units = kTrue;
  EXPECT_EQ(NewSetHelp(Squat(), 2).now,
            "Squat, new set 3: Speed in miles per hour. The voice says kilometers.");
  EXPECT_EQ(Now(kFreqList1), "Squat, set 2, frequency of Distance: 7 days now.");
}

TEST_F(AnswerLines, NameAUserDefinedField) {
  Squat().SetType = kUserDefined;
  Squat().UserField1Name = "Tosses";
  EXPECT_EQ(Now(kSetList1), "Squat, set 2, Tosses: 52.5 now.");
}

TEST_F(AnswerLines, SayWhatIsKeptOfANumber) {
  EXPECT_EQ(Kept(kSetList1, "57.5"), "Will be kept: 57.5 kilograms.");
  EXPECT_EQ(Kept(kSetList1, " 1 "), "Will be kept: 1 kilogram.");
  EXPECT_EQ(Kept(kSetList1, "57,5"), "Will be kept: 57 kilograms. The decimal point is a point.");
  EXPECT_EQ(Kept(kSetList1, "4:00"),
            "Will be kept: 4 kilograms. Only the number at the start counts.");
  EXPECT_EQ(Kept(kSetList1, "abc"), "Will be kept: 0 kilograms. This is not a number.");
  EXPECT_EQ(Kept(kFreqList1, "1"), "Will be kept: 1 day.");
}

TEST_F(AnswerLines, SayWhyNothingIsKept) {
  EXPECT_EQ(Kept(kSetList1, "  "), "Nothing changes.");
  EXPECT_EQ(Kept(kSetList1, "-5"), "Nothing will be kept: less than 0.");
}

TEST_F(AnswerLines, SayWhatIsRefused) {
  EXPECT_EQ(Kept(kSetList1, "1e39"), "Refused: The number is too large.");
  EXPECT_EQ(Kept(kSetList1, "40000"), "Will be kept: 40000 kilograms.");
  EXPECT_EQ(Kept(kFreqList1, "40000"), "Refused: The number is too large.")
      << "the days could not be shown";
}

TEST_F(AnswerLines, SayThatANewSetGetsZeroWithoutANumber) {
  const AnswerHelp help = NewSetHelp(Squat(), 1);
  EXPECT_EQ(help.now, "Squat, new set 3: Weight in kilograms.");
  EXPECT_EQ(help.kept(""), "Will be kept: 0 kilograms. Cancel keeps it, too.");
  EXPECT_EQ(help.kept("-5"), "Will be kept: -5 kilograms.");
  EXPECT_EQ(NewSetHelp(Squat(), 2).kept("10"), "Will be kept: 10 repetitions.");
}

TEST_F(AnswerLines, SayTheDefaultTimeInWholeMinutes) {
  const AnswerHelp help = DefaultTimeHelp(state.Settings);
  EXPECT_EQ(help.now, "The target time of new exercises: 5 minutes now.");
  EXPECT_EQ(help.kept("12.5"), "Will be kept: 12 minutes.");
  EXPECT_EQ(help.kept("-1"), "Will be kept: -1 minutes.");
  EXPECT_EQ(help.kept("4:30"), "Will be kept: 4 minutes. Only the number at the start counts.");
  EXPECT_EQ(help.kept("32768"), "Refused: The number is too large.");
  EXPECT_EQ(help.kept(""), "Nothing changes.");
}

TEST_F(AnswerLines, SayTheTargetTimeInMinutesAndSeconds) {
  Squat().TargetExerciseTime = 320;
  const AnswerHelp help = TargetTimeHelp(Squat());
  EXPECT_EQ(help.now, "Squat, target time: 05:20 (minutes and seconds) now.");
  EXPECT_EQ(help.kept("1.5"), "Will be kept: 01:30 (minutes and seconds).");
  EXPECT_EQ(help.kept("4:30"),
            "Will be kept: 04:00 (minutes and seconds). Only the number at the "
            "start counts.");
  EXPECT_EQ(help.kept("abc"), "Nothing will be kept: not a number.");
  EXPECT_EQ(help.kept("0"), "Nothing will be kept: not more than 0.");
  EXPECT_EQ(help.kept("547"),
            "Refused: This time is too long. The longest target time is 546:07 "
            "(minutes and seconds).");
}

TEST_F(AnswerLines, SayTheNameOfAnExerciseAsItsFieldHoldsIt) {
  const AnswerHelp help = ExerciseNameHelp(Squat());
  EXPECT_EQ(help.now, "The exercise is called \"Squat\" now.");
  EXPECT_EQ(help.kept("Front Squat"), "Will be kept: \"Front Squat\".");
  EXPECT_EQ(help.kept(" "), "Nothing changes.");
  EXPECT_EQ(help.kept(std::string(300, 'x')),
            "Will be kept: \"" + std::string(256, 'x') + "\". The rest does not fit.");
}

TEST_F(AnswerLines, SayWhatBecomesOfTheNameOfANewWorkout) {
  const AnswerHelp help = NewWorkoutHelp(state);
  EXPECT_EQ(help.now, "There is 1 workout now.");
  EXPECT_EQ(help.kept(" Leg day "), "Will be kept: \"Leg day\".");
  EXPECT_EQ(help.kept(""), "Nothing changes.");
  EXPECT_EQ(help.kept("monday"),
            "There is a workout \"monday\": an empty one will take its place.");
  EXPECT_THAT(help.kept("a/b"), HasSubstr("Refused: A workout cannot have this name"));
}

TEST_F(AnswerLines, SayWhichNamesOfCopiesAndRenamedWorkoutsAreTaken) {
  ListEmptyWorkouts({"Monday", "Friday"});
  const AnswerHelp copied = CopiedWorkoutHelp(state);
  EXPECT_EQ(copied.now, "There are 2 workouts now.");
  EXPECT_EQ(copied.kept("monday"), "Refused: there is a workout \"monday\" already.");
  EXPECT_EQ(copied.kept("Sunday"), "Will be kept: \"Sunday\".");
  const AnswerHelp renamed = RenamedWorkoutHelp(state);
  EXPECT_EQ(renamed.now, "The workout is called \"Monday\" now.");
  EXPECT_EQ(renamed.kept("Monday"), "Nothing changes.");
  EXPECT_EQ(renamed.kept("monday"), "Will be kept: \"monday\".");
  EXPECT_EQ(renamed.kept("friday"), "Refused: there is a workout \"friday\" already.");
}

// What the lines promise, the commands do.

TEST_F(AnswerLines, AreThoseOfTheColumnThatWasClicked) {
  using Command = void (*)(Editor&, int);
  const std::vector<Command> commands = {SetList1_DblClick,    SetList2_DblClick,
                                         SetListInc1_DblClick, SetListInc2_DblClick,
                                         FreqList1_DblClick,   FreqList2_DblClick};
  for (std::size_t column = 0; column < commands.size(); ++column) {
    const std::string now = Now(static_cast<SetColumn>(column));
    dialogs.answers = {"3,5"};
    commands[column](editor, 1);
    EXPECT_EQ(dialogs.nowLines.back(), now);
    EXPECT_THAT(dialogs.keptLines.back(), HasSubstr("Will be kept: 3 "));
    EXPECT_EQ(SetRows(Squat(), clock.Now())[column][1], "3");
  }
}

TEST_F(AnswerLines, StandInTheOtherBoxes) {
  dialogs.answers = {"60", "8"};
  AddNewSetButton_Click(editor);
  dialogs.answers = {"7"};
  ExerciseTimeButton_Click(editor);
  dialogs.answers = {"2"};
  SetExerciseTimeButton_Click(editor);
  dialogs.answers = {"Press"};
  EditExerciseNameButton_Click(editor, 0);
  dialogs.answers = {"Friday"};
  CreateNewWorkoutButton_Click(editor);
  EXPECT_THAT(dialogs.keptLines,
              ElementsAre("Will be kept: 60 kilograms.", "Will be kept: 8 repetitions.",
                          "Will be kept: 7 minutes.", "Will be kept: 02:00 (minutes and seconds).",
                          "Will be kept: \"Press\".", "Will be kept: \"Friday\"."));
}

}  // namespace
}  // namespace repvolta
