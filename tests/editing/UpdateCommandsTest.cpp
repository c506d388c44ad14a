#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RecordFormat.h"
#include "base/FileError.h"
#include "editing/UpdateCommands.h"
#include "update/OutputPath.h"
#include "update/Steps.h"
#include "update/UpdateLock.h"

#include "support/ProgramFixture.h"
#include "support/UnreadableFile.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class UpdateCommands : public ProgramFixture {
 protected:
  UpdateCommands() {
    fs::create_directory("player");
    state.Settings.OutputPath = folder.Path() + "player";
    state.WorkoutFileName = "Monday.RPV";
  }

  void AddWorkout(const std::string& name, const std::string& exercise) {
    ExerciseSlots workout;
    workout[0].ExerciseName = exercise;
    PutFile("workouts/" + name, EncodeWorkout(workout));
    state.WorkoutNames.push_back(name);
  }

  std::string SavedExercise(const std::string& name) {
    return DecodeWorkout(GetFile("workouts/" + name))[0].ExerciseName.Text();
  }
};

TEST_F(UpdateCommands, UpdateTheSelectedWorkoutFromAnyDirectory) {
  state.UpdatingAllWorkouts = true;
  fs::current_path("/");
  UpdateSelectedWorkout(program);
  EXPECT_TRUE(fs::exists(folder.Path() + "player/Monday"));
  EXPECT_FALSE(state.UpdatingAllWorkouts);
}

TEST_F(UpdateCommands, DoNothingWhileAnotherUpdateRuns) {
  const UpdateLock other(state.ProgramDirectory);
  EXPECT_THROW(UpdateSelectedWorkout(program), UpdateRunning);
  EXPECT_THROW(UpdateAllWorkouts(program), UpdateRunning);
  EXPECT_TRUE(fs::is_empty("player"));
  EXPECT_THAT(screen.calls, IsEmpty());
}

TEST_F(UpdateCommands, DoNothingWithoutAWorkout) {
  state.WorkoutFileName = " ";
  state.Settings.OutputPath = "";
  UpdateSelectedWorkout(program);
  UpdateAllWorkouts(program);
  EXPECT_THAT(screen.calls, IsEmpty());
}

TEST_F(UpdateCommands, AskForAnOutputPath) {
  for (const std::string& path :
       {std::string(), std::string("   "), std::string(256, '\0'), std::string(256, 'x')}) {
    screen.messages.clear();
    state.Settings.OutputPath = path;
    UpdateSelectedWorkout(program);
    UpdateAllWorkouts(program);
    EXPECT_THAT(screen.messages,
                ElementsAre("Cannot perform update, no Output file path has been specified.",
                            "Cannot perform update, no Output file path has been specified."));
  }
  EXPECT_THAT(screen.titles, testing::Each("Repvolta"));
  EXPECT_TRUE(fs::is_empty("player"));
}

TEST_F(UpdateCommands, TakeAPathThatJustFits) {
  SettingsRecord settings;
  settings.OutputPath = std::string(255, 'x');
  EXPECT_FALSE(IsOutputPathMissing(settings));
}

TEST_F(UpdateCommands, UpdateAllWorkoutsInTheOrderOfTheList) {
  AddWorkout("C.RPV", "Squat");
  AddWorkout("A.RPV", "Rowing");
  AddWorkout("B.RPV", "Plank");

  UpdateAllWorkouts(program);

  for (const char* name : {"A", "B", "C"}) {
    EXPECT_TRUE(fs::exists(std::string("player/") + name + "/" + name + ".M3U")) << name;
  }
  EXPECT_EQ(std::count(screen.calls.begin(), screen.calls.end(), "show"), 3);
  EXPECT_EQ(std::count(screen.calls.begin(), screen.calls.end(), "hide"), 3);
  EXPECT_THAT(screen.messages, ElementsAre("Update COMPLETED on all Workouts"));
  EXPECT_EQ(state.WorkoutFileName, "");
  EXPECT_EQ(state.Workout[0].ExerciseName.Text(), "Plank");
  EXPECT_TRUE(state.UpdatingAllWorkouts);
}

TEST_F(UpdateCommands, TellOfADamagedWorkoutAndGoOn) {
  AddWorkout("A.RPV", "Rowing");
  AddWorkout("B.RPV", "Plank");
  ExerciseSlots damaged;
  damaged[0].ExerciseName = "Rowing";
  damaged[0].NumberOfSets = -1;
  PutFile("workouts/A.RPV", EncodeWorkout(damaged));

  UpdateAllWorkouts(program);

  EXPECT_THAT(screen.messages,
              ElementsAre("A.RPV seems to be damaged: it holds numbers that no workout can have.",
                          "Update COMPLETED on all Workouts"));
  EXPECT_TRUE(fs::exists("player/B/B.M3U"));
}

TEST_F(UpdateCommands, PassOverAWorkoutThatIsGone) {
  AddWorkout("A.RPV", "Rowing");
  AddWorkout("B.RPV", "Plank");
  fs::remove("workouts/B.RPV");

  UpdateAllWorkouts(program);

  EXPECT_THAT(screen.messages,
              ElementsAre("Error: Workout file not found", "Update COMPLETED on all Workouts"));
  EXPECT_FALSE(fs::exists("workouts/B.RPV"));
  EXPECT_EQ(SavedExercise("A.RPV"), "Rowing");
}

TEST_F(UpdateCommands, TellOfAWorkoutThatCannotBeReadAndGoOn) {
  AddWorkout("A.RPV", "Rowing");
  AddWorkout("B.RPV", "Plank");
  const UnreadableFile unreadable("workouts/A.RPV");

  UpdateAllWorkouts(program);

  EXPECT_THAT(screen.messages, ElementsAre("workouts/A.RPV could not be read: Permission denied",
                                           "Update COMPLETED on all Workouts"));
  EXPECT_FALSE(fs::exists("player/A"));
  EXPECT_TRUE(fs::exists("player/B/B.M3U"));
}

/// Cannot show a workout whose first exercise has a certain name.
class ScreenThatCannotShow : public RecordingScreen {
 public:
  ScreenThatCannotShow(const ProgramState& state, std::string exercise)
      : state_(state), exercise_(std::move(exercise)) {}

  void UpdateWorkoutScreen() override {
    if (state_.Workout[0].ExerciseName.Text() == exercise_)
      throw FileError("label", "is", "narrow");
  }

 private:
  const ProgramState& state_;
  std::string exercise_;
};

TEST_F(UpdateCommands, UpdateAWorkoutThatCannotBeShownAndGoOn) {
  AddWorkout("A.RPV", "Rowing");
  AddWorkout("B.RPV", "Plank");
  ScreenThatCannotShow narrow(state, "Rowing");
  Program shown{state, narrow, clock, random, processes, speech};

  UpdateAllWorkouts(shown);

  EXPECT_THAT(narrow.messages,
              ElementsAre("A.RPV cannot be shown as a whole, but is updated all the same.\r"
                          "label is: narrow",
                          "Update COMPLETED on all Workouts"));
  EXPECT_TRUE(fs::exists("player/A/A.M3U"));
  EXPECT_TRUE(fs::exists("player/B/B.M3U"));
  EXPECT_EQ(SavedExercise("A.RPV"), "Rowing");
  EXPECT_EQ(state.WorkoutFileName, "");
}

/// The person ends the program while a workout is shown.
class ScreenThatStops : public RecordingScreen {
 public:
  void UpdateWorkoutScreen() override { throw UpdateStopped(); }
};

TEST_F(UpdateCommands, EndWhereThePersonEndsTheProgram) {
  AddWorkout("A.RPV", "Rowing");
  ScreenThatStops stopping;
  Program ending{state, stopping, clock, random, processes, speech};
  EXPECT_THROW(UpdateAllWorkouts(ending), UpdateStopped);
  EXPECT_THAT(stopping.messages, IsEmpty());
}

}  // namespace
}  // namespace repvolta
