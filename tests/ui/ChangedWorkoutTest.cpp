#include "update/UpdateLock.h"

#include "support/FormFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The exercise tab of the second exercise, while other processes work in the same directory.
class ChangedWorkout : public FormFixture {
 protected:
  ChangedWorkout() {
    AddExercise("Run");
    ExerciseRecord& exercise = AddExercise("Squat");
    exercise.NumberOfSets = 1;
    exercise.SetValue1[0] = 50;
    state.CurrentExercise = 1;
    Show();
    OpenTab(1);
  }

  /// Acts as a scheduled update.
  template <class Change>
  void ChangeElsewhere(Change change) {
    ProgramState other = state;
    change(other.Workout[1]);
    SaveWorkout(other);
  }
};

TEST_F(ChangedWorkout, IsLoadedBeforeItIsEdited) {
  ChangeElsewhere([](ExerciseRecord& exercise) { exercise.SetValue1[0] = 52.5F; });

  Click("UnitsSelection_1");

  EXPECT_THAT(dialogs.asked, IsEmpty());
  EXPECT_EQ(Saved()[1].SetValue1[0], 52.5F);
  EXPECT_EQ(Saved()[1].Units, state.Workout[1].Units);
  EXPECT_NE(Saved()[1].Units, Saved()[0].Units);
}

TEST_F(ChangedWorkout, IsLoadedBeforeItIsShown) {
  ChangeElsewhere([](ExerciseRecord& exercise) { exercise.SetValue1[0] = 52.5F; });
  OpenTab(0);
  OpenTab(1);
  EXPECT_THAT(Rows("SetList1"), ElementsAre("52.5"));
}

TEST_F(ChangedWorkout, IsNotEditedByRowsThatAreNoMore) {
  ChangeElsewhere([](ExerciseRecord& exercise) { exercise.NumberOfSets = 2; });

  Click("UnitsSelection_1");

  EXPECT_EQ(dialogs.asked.size(), 1U);
  EXPECT_EQ(Saved()[1].NumberOfSets, 2);
  EXPECT_EQ(Saved()[1].Units, Saved()[0].Units);
  EXPECT_EQ(Rows("SetList1").size(), 2U);
}

TEST_F(ChangedWorkout, TakesARefusedChoiceOfRandomMusicBack) {
  ChangeElsewhere([](ExerciseRecord& exercise) { exercise.NumberOfSets = 2; });
  Click("RandomMusicCheckBox");
  EXPECT_EQ(dialogs.asked.size(), 1U);
  EXPECT_EQ(Saved()[1].RandomMusic, kFalse);
  EXPECT_FALSE(Get<QAbstractButton>("RandomMusicCheckBox").isChecked());
  Click("RandomMusicCheckBox");
  EXPECT_EQ(Saved()[1].RandomMusic, kTrue);
}

TEST_F(ChangedWorkout, KeepsNoChoiceOfSettingsFromBeingSaved) {
  OpenTab(2);
  ChangeElsewhere([](ExerciseRecord& exercise) { exercise.NumberOfSets = 2; });
  Click("IncludeWeightValuesCheck");
  EXPECT_EQ(SavedSettings().IncludeWeightValues, kTrue);
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(ChangedWorkout, KeepsNoButtonOfTheSettingsFromItsWork) {
  OpenTab(2);
  ChangeElsewhere([](ExerciseRecord& exercise) { exercise.NumberOfSets = 2; });
  dialogs.answers = {"", ""};
  for (const char* button : {"AboutButton", "MusicPathButton", "OutputPathButton"}) Click(button);
  EXPECT_THAT(dialogs.asked, ElementsAre("about", "directory", "directory"));
}

TEST_F(ChangedWorkout, KeepsNoMusicFromBeingListed) {
  OpenTab(2);
  ChangeElsewhere([](ExerciseRecord& exercise) { exercise.NumberOfSets = 2; });
  Click("CompileMusicList");
  EXPECT_THAT(dialogs.asked,
              ElementsAre("message|Repvolta|The random music list has been compiled."));
}

TEST_F(ChangedWorkout, IsLeftForAnotherOne) {
  ListWorkouts({"Tuesday"});
  form->SelectWorkout(0);
  OpenTab(0);
  ChangeElsewhere([](ExerciseRecord& exercise) { exercise.NumberOfSets = 2; });
  Get<QComboBox>("WorkoutDropBox").setCurrentIndex(1);
  QApplication::processEvents();
  EXPECT_THAT(dialogs.asked, IsEmpty());
  EXPECT_EQ(state.WorkoutFileName, "Tuesday.RPV");
}

TEST_F(ChangedWorkout, ShowsNoFramesWhenItHasNoExercisesAnyMore) {
  OpenTab(0);
  ProgramState other = state;
  other.Workout = {};
  SaveWorkout(other);
  OpenTab(1);
  EXPECT_EQ(dialogs.asked.size(), 1U);
  EXPECT_EQ(Text("ExerciseNameLabel"), "No Exercise Selected");
  EXPECT_FALSE(Get<QWidget>("SetButtonsFrame").isVisible());
}

TEST_F(ChangedWorkout, IsNotUpdatedWhileAnotherUpdateRuns) {
  const UpdateLock other(state.ProgramDirectory);
  Click("UpdateSelectedWorkoutButton");
  EXPECT_THAT(dialogs.asked,
              ElementsAre("message|Repvolta|The workout could not be updated.\rAnother update of " +
                          state.ProgramDirectory + " is running"));
}

}  // namespace
}  // namespace repvolta
