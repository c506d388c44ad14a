#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RecordFormat.h"
#include "app/WorkoutFiles.h"
#include "editing/LoadedWorkout.h"
#include "editing/SetValueEditing.h"
#include "editing/Undo.h"
#include "editing/UpdateCommands.h"
#include "update/Steps.h"

#include "support/EditorFixture.h"
#include "support/FullDisk.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

/// The workouts Monday and Friday, of which each has an exercise that grows with the next update.
class UndoOfUpdate : public EditorFixture {
 protected:
  UndoOfUpdate() {
    for (const char* file : {kMonday, kFriday}) PutFile(file, before);
    ListWorkouts(editor);
    LoadAndShowWorkout(editor);
  }

  static Bytes GrowingWorkout() {
    ExerciseSlots workout;
    ExerciseRecord& squat = workout[0];
    squat.ExerciseName = "Squat";
    squat.NumberOfSets = 1;
    squat.SetValue1[0] = 50;
    squat.SetIncrement1[0] = 5;
    squat.SetFrequency1[0] = 7;
    squat.NextUpdate1[0] = kToday - 8;
    return EncodeWorkout(workout);
  }

  static float Weight(const std::string& name) { return Saved(name)[0].SetValue1[0]; }

  static constexpr const char* kMonday = "workouts/Monday.RPV";
  static constexpr const char* kFriday = "workouts/Friday.RPV";
  const Bytes before = GrowingWorkout();
};

TEST_F(UndoOfUpdate, BringsValuesAndDatesBackAndLeavesTheFilesOnThePlayer) {
  UpdateSelectedWorkoutButton_Click(editor);
  EXPECT_EQ(Weight("Monday.RPV"), 55);
  EXPECT_EQ(editor.history->UndoName(), "Update");
  UndoAction_Trigger(editor);
  EXPECT_EQ(GetFile(kMonday), before);
  EXPECT_EQ(state.Workout[0].SetValue1[0], 50);
  EXPECT_FALSE(fs::is_empty("player/Monday"));
  RedoAction_Trigger(editor);
  EXPECT_EQ(Weight("Monday.RPV"), 55);
}

TEST_F(UndoOfUpdate, IsNoStepWhenNothingGrew) {
  UpdateSelectedWorkoutButton_Click(editor);
  UndoAction_Trigger(editor);
  clock.Set(kToday - 1);
  UpdateSelectedWorkoutButton_Click(editor);
  EXPECT_EQ(editor.history->UndoName(), "");
}

TEST_F(UndoOfUpdate, OfAllWorkoutsIsOneStep) {
  UpdateAllWorkoutsButton_Click(editor);
  EXPECT_EQ(Weight("Monday.RPV"), 55);
  EXPECT_EQ(Weight("Friday.RPV"), 55);
  UndoAction_Trigger(editor);
  EXPECT_EQ(GetFile(kMonday), before);
  EXPECT_EQ(GetFile(kFriday), before);
  EXPECT_EQ(editor.history->UndoName(), "");
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
}

TEST_F(UndoOfUpdate, OfSeveralIsAllOrNothing) {
  UpdateAllWorkoutsButton_Click(editor);
  const Bytes after = GetFile(kMonday);
  Bytes theirs = GetFile(kMonday);
  theirs[0] ^= 1U;
  PutFile(kMonday, theirs);
  EXPECT_THROW(UndoAction_Trigger(editor), FileError);
  EXPECT_EQ(GetFile(kFriday), after);
  EXPECT_EQ(GetFile(kMonday), theirs);
  EXPECT_EQ(editor.history->UndoName(), "Update");
}

TEST_F(UndoOfUpdate, OfAStoppedOneTakesBackWhatItSaved) {
  run.stopRequested = [this] { return GetFile(kFriday) != before; };
  EXPECT_THROW(UpdateAllWorkoutsButton_Click(editor), UpdateStopped);
  EXPECT_EQ(editor.history->UndoName(), "Update");
  UndoAction_Trigger(editor);
  EXPECT_EQ(GetFile(kFriday), before);
  EXPECT_EQ(GetFile(kMonday), before);
}

TEST_F(UndoOfUpdate, TakesBackGrowthThatCouldNotBeSaved) {
  {
    const FullDisk full(1000);
    UpdateSelectedWorkoutButton_Click(editor);
  }
  EXPECT_EQ(state.Workout[0].SetValue1[0], 55);
  EXPECT_EQ(GetFile(kMonday), before);
  EXPECT_EQ(editor.history->UndoName(), "Update");
  UndoAction_Trigger(editor);
  EXPECT_EQ(state.Workout[0].SetValue1[0], 50);
}

TEST_F(UndoOfUpdate, DoesNotTakeBackWhatAnotherProgramChangedDuringTheUpdate) {
  Bytes theirs;
  run.stopRequested = [&] {
    if (!theirs.empty() || GetFile(kMonday) == before) return false;
    theirs = GetFile(kMonday);
    theirs[0] ^= 1U;
    PutFile(kMonday, theirs);
    return false;
  };
  UpdateSelectedWorkoutButton_Click(editor);
  ASSERT_FALSE(theirs.empty());
  EXPECT_THROW(UndoAction_Trigger(editor), FileError);
  EXPECT_EQ(GetFile(kMonday), theirs);
}

}  // namespace
}  // namespace repvolta
