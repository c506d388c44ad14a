#include <filesystem>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RecordFormat.h"
#include "editing/LoadedWorkout.h"

#include "support/WindowlessFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The workout "Monday" with two exercises, loaded and shown.
class LoadedWorkout : public WindowlessFixture {
 protected:
  LoadedWorkout() {
    workout[0].ExerciseName = "A";
    workout[1].ExerciseName = "B";
    state.WorkoutFileName = "Monday.RPV";
  }

  WorkoutLoad Load() {
    PutFile("workouts/Monday.RPV", EncodeWorkout(workout));
    window.messages.clear();
    window.calls.clear();
    return LoadAndShowWorkout(editor);
  }

  static constexpr const char* kDamage =
      "Monday.RPV seems to be damaged: it holds numbers that no workout can have.";

  ExerciseSlots workout;
};

TEST_F(LoadedWorkout, IsShownOnBothTabs) {
  EXPECT_EQ(Load(), WorkoutLoad::kLoaded);
  EXPECT_THAT(window.calls, ElementsAre("workout screen", "exercise screen"));
  EXPECT_THAT(window.messages, IsEmpty());
}

TEST_F(LoadedWorkout, IsSaidToBeMissing) {
  state.Workout[0].ExerciseName = "before";
  EXPECT_EQ(LoadAndShowWorkout(editor), WorkoutLoad::kNotFound);
  EXPECT_THAT(window.messages, ElementsAre("Error: Workout file not found"));
  EXPECT_THAT(window.calls, ElementsAre("message: Repvolta"));
  EXPECT_EQ(state.Workout[0].ExerciseName.Text(), "before");
}

TEST_F(LoadedWorkout, IsNoneWithoutAName) {
  state.WorkoutFileName = "  ";
  EXPECT_EQ(LoadAndShowWorkout(editor), WorkoutLoad::kNoName);
  EXPECT_THAT(window.calls, IsEmpty());
}

TEST_F(LoadedWorkout, IsToldToBeDamagedOnceItIsShown) {
  for (const int slot : {0, 1}) workout[slot].NumberOfSets = workout[slot].NumberOfMusicFiles = -1;
  Load();
  EXPECT_THAT(window.messages, ElementsAre(kDamage));
  EXPECT_THAT(window.calls, ElementsAre("workout screen", "exercise screen", "message: Repvolta"));
}

/// Cannot show the workout.
class WindowThatThrows : public RecordingWindow {
 public:
  void UpdateWorkoutScreen() override { throw std::overflow_error("The number is too large"); }
};

TEST_F(LoadedWorkout, IsToldToBeDamagedAndNothingElseWhereItCannotBeShown) {
  workout[0].NumberOfSets = -1;
  PutFile("workouts/Monday.RPV", EncodeWorkout(workout));
  WindowThatThrows throwing;
  EXPECT_EQ(LoadAndShowWorkout(throwing.EditorOf(program)), WorkoutLoad::kLoaded);
  EXPECT_THAT(throwing.messages, ElementsAre(kDamage));

  workout[0].NumberOfSets = 1;
  PutFile("workouts/Monday.RPV", EncodeWorkout(workout));
  EXPECT_THROW(LoadAndShowWorkout(throwing.EditorOf(program)), std::overflow_error);
}

TEST_F(LoadedWorkout, IsToldToBeAnotherAlsoWhereItCannotBeShown) {
  Load();
  ProgramState other = state;
  other.Workout[1].ExerciseName = "C";
  SaveWorkout(other);
  WindowThatThrows throwing;
  try {
    ReloadChangedWorkout(throwing.EditorOf(program));
    FAIL();
  } catch (const WorkoutReplaced& replaced) {
    EXPECT_STREQ(replaced.what(),
                 "Monday.RPV was changed by another program and has been loaded again.\r"
                 "The number is too large");
  }
}

/// Notes whether the program itself fills the list of workouts.
class WindowThatLooks : public RecordingWindow {
 public:
  explicit WindowThatLooks(const ProgramState& state) : state_(state) {}
  void ShowWorkoutNames() override { wasUpdating = state_.ScreenUpdating; }

  bool wasUpdating = false;

 private:
  const ProgramState& state_;
};

TEST_F(LoadedWorkout, IsListedByTheProgramItself) {
  WindowThatLooks looking(state);
  ListWorkouts(looking.EditorOf(program));
  EXPECT_TRUE(looking.wasUpdating);
  EXPECT_FALSE(state.ScreenUpdating);
}

TEST_F(LoadedWorkout, IsLoadedAgainOnlyWhenItIsChanged) {
  Load();
  state.CurrentExercise = 1;
  ProgramState other = state;
  window.calls.clear();
  ReloadChangedWorkout(editor);
  EXPECT_THAT(window.calls, IsEmpty());

  other.Workout[1].SetValue1[0] = 52.5F;
  SaveWorkout(other);
  ReloadChangedWorkout(editor);

  EXPECT_EQ(state.Workout[1].SetValue1[0], 52.5F);
  EXPECT_EQ(state.CurrentExercise, 1);
  EXPECT_THAT(window.calls, ElementsAre("workout screen", "exercise screen"));
}

TEST_F(LoadedWorkout, IsLoadedAgainFromAnyDirectory) {
  Load();
  ProgramState other = state;
  other.Workout[0].SetValue1[0] = 60;
  SaveWorkout(other);
  std::filesystem::current_path("/");
  ReloadChangedWorkout(editor);
  EXPECT_EQ(state.Workout[0].SetValue1[0], 60);
}

TEST_F(LoadedWorkout, IsToldToBeAnotherWhenItsRowsAre) {
  Load();
  state.CurrentExercise = 1;
  ProgramState other = state;
  other.Workout[1].ExerciseName = "";
  SaveWorkout(other);

  EXPECT_THROW(ReloadChangedWorkout(editor), WorkoutReplaced);

  EXPECT_EQ(state.NumberOfExercises, 1);
  EXPECT_EQ(state.CurrentExercise, 0);
  EXPECT_NO_THROW(ReloadChangedWorkout(editor));
}

TEST_F(LoadedWorkout, IsToldToBeDamagedByAnotherProgram) {
  Load();
  workout[1].NumberOfSets = -1;
  PutFile("workouts/other", EncodeWorkout(workout));
  std::filesystem::rename("workouts/other", "workouts/Monday.RPV");
  try {
    ReloadChangedWorkout(editor);
    FAIL() << "nothing was told";
  } catch (const WorkoutReplaced& told) {
    EXPECT_EQ(told.what(),
              "Monday.RPV was changed by another program and has been loaded again.\r" +
                  std::string(kDamage));
  }
}

/// Two exercises, of which the second is the current one; another program changes them.
class WorkoutChangedElsewhere : public LoadedWorkout {
 protected:
  WorkoutChangedElsewhere() {
    Load();
    for (const int slot : {0, 1}) {
      state.Workout[slot].NumberOfSets = 1;
      state.Workout[slot].NumberOfMusicFiles = 1;
      state.Workout[slot].MusicFile[0] = "/a.mp3";
    }
    SaveWorkout(state);
    state.CurrentExercise = 1;
  }

  void Change(const std::function<void(ExerciseSlots&)>& change) {
    ProgramState other = state;
    change(other.Workout);
    SaveWorkout(other);
  }
};

TEST_F(WorkoutChangedElsewhere, HasOtherRowsWhereSetsWereAdded) {
  Change([](ExerciseSlots& records) { records[0].NumberOfSets = 2; });
  EXPECT_THROW(ReloadChangedWorkout(editor), WorkoutReplaced);
}

TEST_F(WorkoutChangedElsewhere, HasOtherRowsWhereTheMusicThatIsShownIsAnother) {
  Change([](ExerciseSlots& records) { records[1].MusicFile[0] = "/b.mp3"; });
  EXPECT_THROW(ReloadChangedWorkout(editor), WorkoutReplaced);
}

TEST_F(WorkoutChangedElsewhere, HasTheSameRowsWhereTheMusicOfAnotherExerciseIsAnother) {
  Change([](ExerciseSlots& records) { records[0].MusicFile[0] = "/b.mp3"; });
  EXPECT_NO_THROW(ReloadChangedWorkout(editor));
  EXPECT_EQ(state.Workout[0].MusicFile[0].Text(), "/b.mp3");
}

TEST_F(WorkoutChangedElsewhere, MayClaimMoreMusicThanThereAreSlots) {
  Change([](ExerciseSlots& records) { records[1].NumberOfMusicFiles = 32767; });
  EXPECT_THROW(ReloadChangedWorkout(editor), WorkoutReplaced);
}

TEST_F(WorkoutChangedElsewhere, KeepsTheCurrentExerciseInUse) {
  state.CurrentExercise = 2;
  Change([](ExerciseSlots& records) { records[0].SetValue1[0] = 1; });
  EXPECT_THROW(ReloadChangedWorkout(editor), WorkoutReplaced);
  EXPECT_EQ(state.CurrentExercise, 0);
}

}  // namespace
}  // namespace repvolta
