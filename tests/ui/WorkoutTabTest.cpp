#include "support/Accessibility.h"
#include "support/FormFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class WorkoutScreen : public FormFixture {};

TEST_F(WorkoutScreen, ListsNamesSummariesAndTheTotal) {
  ExerciseRecord& squat = AddExercise("Squat");
  squat.NumberOfSets = 3;
  squat.TargetExerciseTime = 320;
  squat.TotalMusicTime = 375;
  squat.RandomMusic = kTrue;
  AddExercise("Row").TotalMusicTime = 59;
  form->UpdateWorkoutScreen();
  EXPECT_THAT(Rows("ExerciseList"), ElementsAre("Squat", "Row"));
  EXPECT_THAT(Rows("ExerciseSummaryList"),
              ElementsAre("03 sets, 05:20 Exercise, 06:15 Music, Random Music",
                          "00 sets, 05:00 Exercise, 00:59 Music"));
  EXPECT_EQ(Text("TotalWorkoutMusicTimeLabel"), "07:14");
}

TEST_F(WorkoutScreen, StoresNamesTrimmed) {
  AddExercise("Squat").ExerciseName = "  Squat  ";
  form->UpdateWorkoutScreen();
  EXPECT_EQ(state.Workout[0].ExerciseName.Text(), "Squat");
}

TEST_F(WorkoutScreen, ABlankNameIsNotListedButItsSummaryIs) {
  AddExercise("Squat").ExerciseName = "   ";
  form->UpdateWorkoutScreen();
  EXPECT_THAT(Rows("ExerciseList"), IsEmpty());
  EXPECT_EQ(Rows("ExerciseSummaryList").size(), 1U);
}

TEST_F(WorkoutScreen, SelectsTheCurrentExercise) {
  AddExercise("Squat");
  AddExercise("Row");
  state.CurrentExercise = 1;
  form->UpdateWorkoutScreen();
  EXPECT_EQ(List("ExerciseList").SelectedRow(), 1);
  EXPECT_EQ(List("ExerciseSummaryList").SelectedRow(), 1);
}

TEST_F(WorkoutScreen, ATotalThatDoesNotFitThrowsBehindTheLists) {
  AddExercise("Squat").TotalMusicTime = 32767;
  AddExercise("Row").TotalMusicTime = 0;
  state.Workout[1].TotalMusicTime = 1;
  EXPECT_THROW(form->UpdateWorkoutScreen(), std::overflow_error);
  EXPECT_THAT(Rows("ExerciseList"), ElementsAre("Squat", "Row"));
}

TEST_F(WorkoutScreen, ShowingIsNoChoice) {
  AddExercise("Squat");
  const ExerciseSlots before = state.Workout;
  form->UpdateWorkoutScreen();
  EXPECT_EQ(state.Workout, before);
  EXPECT_FALSE(state.ScreenUpdating);
}

TEST_F(WorkoutScreen, AFileOfAnotherSizeIsToldByALineWithoutABox) {
  auto& line = Get<QLabel>("WorkoutFileLabel");
  EXPECT_FALSE(line.isVisible());
  const std::vector<std::pair<std::size_t, std::string>> files = {
      {0, "0 bytes instead of 266240; what is missing was filled up with blanks."},
      {300000, "300000 bytes instead of 266240; what is too much was ignored."}};
  for (const auto& [size, text] : files) {
    PutFile("workouts/Monday.RPV", std::string(size, ' '));
    Load("Monday.RPV");
    EXPECT_TRUE(line.isVisible());
    EXPECT_EQ(line.text().toStdString(), "Monday.RPV has " + text);
    EXPECT_EQ(HeardName(line), "Monday.RPV has " + text);
  }
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(WorkoutScreen, TheLineGoesWithTheNextSave) {
  PutFile("workouts/Monday.RPV", "");
  Load("Monday.RPV");
  dialogs.answers = {"Squat"};
  Click("AddExerciseButton");
  EXPECT_FALSE(Get<QLabel>("WorkoutFileLabel").isVisible());
}

TEST_F(WorkoutScreen, TheLineGoesAlsoWhenTheSaveShowsOnlyTheExercise) {
  AddExercise("Squat");
  Bytes half = GetFile("workouts/Monday.RPV");
  half.resize(6000);
  PutFile("workouts/Monday.RPV", half);
  Load("Monday.RPV");
  OpenTab(1);
  EXPECT_FALSE(Get<QLabel>("WorkoutFileLabel").isHidden());
  Click("UnitsSelection_1");
  EXPECT_TRUE(Get<QLabel>("WorkoutFileLabel").isHidden());
}

TEST_F(WorkoutScreen, TheLineGoesWithItsWorkout) {
  ListWorkouts({"Tuesday"});
  PutFile("workouts/Monday.RPV", "");
  Load("Monday.RPV");
  Load("Tuesday.RPV");
  EXPECT_FALSE(Get<QLabel>("WorkoutFileLabel").isVisible());
}

TEST_F(WorkoutScreen, AnEmptyListSaysWhatToDo) {
  EXPECT_EQ(List("ExerciseList").Hint(), "No exercises yet: add one with \"Add New Exercise\".");
  state.WorkoutFileName = "";
  form->EnableWorkoutControls();
  EXPECT_EQ(List("ExerciseList").Hint(), "Create or choose a workout first.");
}

}  // namespace
}  // namespace repvolta
