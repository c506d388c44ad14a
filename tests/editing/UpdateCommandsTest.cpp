#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RecordFormat.h"
#include "editing/UpdateCommands.h"
#include "update/OutputPath.h"
#include "update/UpdateLock.h"

#include "support/ProgramFixture.h"

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

}  // namespace
}  // namespace repvolta
