#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RecordFormat.h"
#include "base/FileError.h"
#include "editing/UpdateCommands.h"
#include "player/OutputPath.h"
#include "update/Steps.h"
#include "update/UpdateLock.h"

#include "support/UnreadableFile.h"
#include "support/WindowlessFixture.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class UpdateCommands : public WindowlessFixture {
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
  UpdateSelectedWorkoutButton_Click(editor);
  EXPECT_TRUE(fs::exists(folder.Path() + "player/Monday"));
  EXPECT_FALSE(state.UpdatingAllWorkouts);
}

TEST_F(UpdateCommands, DoNothingWhileAnotherUpdateRuns) {
  const UpdateLock other(state.ProgramDirectory);
  EXPECT_THROW(UpdateSelectedWorkoutButton_Click(editor), UpdateRunning);
  EXPECT_THROW(UpdateAllWorkoutsButton_Click(editor), UpdateRunning);
  EXPECT_TRUE(fs::is_empty("player"));
  EXPECT_THAT(window.calls, IsEmpty());
}

TEST_F(UpdateCommands, DoNothingWithoutAWorkout) {
  state.WorkoutFileName = " ";
  state.Settings.OutputPath = "";
  UpdateSelectedWorkoutButton_Click(editor);
  UpdateAllWorkoutsButton_Click(editor);
  EXPECT_THAT(window.calls, IsEmpty());
}

TEST_F(UpdateCommands, AskForAnOutputPath) {
  for (const std::string& path :
       {std::string(), std::string("   "), std::string(256, '\0'), std::string(256, 'x')}) {
    window.messages.clear();
    state.Settings.OutputPath = path;
    UpdateSelectedWorkoutButton_Click(editor);
    UpdateAllWorkoutsButton_Click(editor);
    EXPECT_THAT(window.messages,
                ElementsAre("Cannot perform update, no Output file path has been specified.",
                            "Cannot perform update, no Output file path has been specified."));
  }
  EXPECT_THAT(window.calls, testing::Each("message: Repvolta"));
  EXPECT_TRUE(fs::is_empty("player"));
}

TEST_F(UpdateCommands, TakeAPathThatJustFits) {
  SettingsRecord settings;
  settings.OutputPath = std::string(255, 'x');
  EXPECT_FALSE(IsOutputPathMissing(settings));
}

TEST_F(UpdateCommands, LeaveTheProgressWindowAndShowTheExercise) {
  UpdateSelectedWorkoutButton_Click(editor);
  EXPECT_THAT(window.calls, ElementsAre("show", "line", "line", "line", "line", "exercise screen"));
}

TEST_F(UpdateCommands, HideTheProgressWindowOfEachWorkoutBeforeTheExerciseIsShown) {
  state.WorkoutNames = {"Monday.RPV"};
  AddWorkout("Monday.RPV", "");
  state.WorkoutNames.pop_back();
  UpdateAllWorkoutsButton_Click(editor);
  EXPECT_THAT(window.calls,
              ElementsAre("workout screen", "exercise screen", "show", "line", "line", "line",
                          "line", "hide", "exercise screen", "message: Repvolta"));
}

TEST_F(UpdateCommands, OpenThePlayListWhenTheSettingAsksForIt) {
  UpdateSelectedWorkoutButton_Click(editor);
  EXPECT_THAT(window.opened, IsEmpty());
  state.Settings.AutoLoadPlaylist = kTrue;
  UpdateSelectedWorkoutButton_Click(editor);
  EXPECT_THAT(window.opened, ElementsAre(folder.Path() + "player/Monday/Monday.M3U"));
}

/// Cannot show the exercise.
class WindowWithoutExercise : public RecordingWindow {
 public:
  void UpdateExerciseScreen() override { throw FileError("label", "is", "narrow"); }
};

TEST_F(UpdateCommands, LogWhatKeepsTheExerciseFromBeingShown) {
  WindowWithoutExercise narrow;
  UpdateSelectedWorkoutButton_Click(narrow.EditorOf(program));
  EXPECT_EQ(narrow.log.back(), "ERROR: label is: narrow");
}

TEST_F(UpdateCommands, UpdateAllWorkoutsInTheOrderOfTheList) {
  AddWorkout("C.RPV", "Squat");
  AddWorkout("A.RPV", "Rowing");
  AddWorkout("B.RPV", "Plank");

  UpdateAllWorkoutsButton_Click(editor);

  for (const char* name : {"A", "B", "C"}) {
    EXPECT_TRUE(fs::exists(std::string("player/") + name + "/" + name + ".M3U")) << name;
  }
  EXPECT_EQ(std::count(window.calls.begin(), window.calls.end(), "show"), 3);
  EXPECT_EQ(std::count(window.calls.begin(), window.calls.end(), "hide"), 3);
  EXPECT_THAT(window.messages, ElementsAre("Update COMPLETED on all Workouts"));
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

  UpdateAllWorkoutsButton_Click(editor);

  EXPECT_THAT(window.messages,
              ElementsAre("A.RPV seems to be damaged: it holds numbers that no workout can have.",
                          "Update COMPLETED on all Workouts"));
  EXPECT_TRUE(fs::exists("player/B/B.M3U"));
}

TEST_F(UpdateCommands, PassOverAWorkoutThatIsGone) {
  AddWorkout("A.RPV", "Rowing");
  AddWorkout("B.RPV", "Plank");
  fs::remove("workouts/B.RPV");

  UpdateAllWorkoutsButton_Click(editor);

  EXPECT_THAT(window.messages,
              ElementsAre("Error: Workout file not found", "Update COMPLETED on all Workouts"));
  EXPECT_FALSE(fs::exists("workouts/B.RPV"));
  EXPECT_EQ(SavedExercise("A.RPV"), "Rowing");
}

TEST_F(UpdateCommands, TellOfAWorkoutThatCannotBeReadAndGoOn) {
  AddWorkout("A.RPV", "Rowing");
  AddWorkout("B.RPV", "Plank");
  const UnreadableFile unreadable("workouts/A.RPV");

  UpdateAllWorkoutsButton_Click(editor);

  EXPECT_THAT(window.messages, ElementsAre("workouts/A.RPV could not be read: Permission denied",
                                           "Update COMPLETED on all Workouts"));
  EXPECT_FALSE(fs::exists("player/A"));
  EXPECT_TRUE(fs::exists("player/B/B.M3U"));
}

/// Cannot show a workout whose first exercise has a certain name.
class WindowThatCannotShow : public RecordingWindow {
 public:
  WindowThatCannotShow(const ProgramState& state, std::string exercise)
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
  WindowThatCannotShow narrow(state, "Rowing");

  UpdateAllWorkoutsButton_Click(narrow.EditorOf(program));

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
class WindowThatStops : public RecordingWindow {
 public:
  void UpdateWorkoutScreen() override { throw UpdateStopped(); }
};

TEST_F(UpdateCommands, EndWhereThePersonEndsTheProgram) {
  AddWorkout("A.RPV", "Rowing");
  WindowThatStops stopping;
  EXPECT_THROW(UpdateAllWorkoutsButton_Click(stopping.EditorOf(program)), UpdateStopped);
  EXPECT_THAT(stopping.messages, IsEmpty());
}

/// Stops the updates, as the person can, when a line has been logged.
class WindowThatStopsAt : public RecordingWindow {
 public:
  explicit WindowThatStopsAt(std::string line) : line_(std::move(line)) {}

  void AddLineToUpdateList(std::string_view line) override {
    RecordingWindow::AddLineToUpdateList(line);
    if (line == line_) {
      stopRequested = [] { return true; };
    }
  }

 private:
  std::string line_;
};

TEST_F(UpdateCommands, SayWhichWorkoutsAreLeftOutWhenTheyAreStopped) {
  for (const char* name : {"A.RPV", "B.RPV", "C.RPV"}) AddWorkout(name, "Squat");
  WindowThatStopsAt stopping("Updating Workout A.RPV");

  EXPECT_THROW(UpdateAllWorkoutsButton_Click(stopping.EditorOf(program)), UpdateStopped);

  EXPECT_THAT(
      stopping.log,
      ElementsAre("Updating Workout A.RPV", "Created directory " + folder.Path() + "player/A/",
                  "STOPPED: No new file is on the player, and A.RPV is as it was before.",
                  "STOPPED: B.RPV and C.RPV are not updated."));
  EXPECT_THAT(stopping.calls, testing::Not(testing::Contains("hide")));
  EXPECT_THAT(stopping.messages, IsEmpty());
  EXPECT_FALSE(fs::exists("player/B"));
  EXPECT_EQ(state.WorkoutFileName, "");
}

TEST_F(UpdateCommands, LeaveTheWindowOpenThatNamesTheWorkoutsThatAreLeftOut) {
  for (const char* name : {"A.RPV", "B.RPV"}) AddWorkout(name, "Squat");
  WindowThatStopsAt stopping("UPDATE COMPLETE.");

  EXPECT_THROW(UpdateAllWorkoutsButton_Click(stopping.EditorOf(program)), UpdateStopped);

  EXPECT_EQ(stopping.log.back(), "STOPPED: B.RPV is not updated.");
  EXPECT_THAT(stopping.calls, testing::Not(testing::Contains("hide")));
  EXPECT_EQ(std::count(stopping.calls.begin(), stopping.calls.end(), "show"), 1);
  EXPECT_TRUE(fs::exists("player/A/A.M3U"));
}

TEST_F(UpdateCommands, ShowTheExerciseAlsoOfAWorkoutWhoseUpdateIsStopped) {
  AddWorkout("Monday.RPV", "Squat");
  WindowThatStopsAt stopping("Updating Workout Monday.RPV");
  EXPECT_THROW(UpdateSelectedWorkoutButton_Click(stopping.EditorOf(program)), UpdateStopped);
  EXPECT_EQ(stopping.calls.back(), "exercise screen");
}

TEST_F(UpdateCommands, MakeOneProgressOfAllWorkouts) {
  for (const char* name : {"A.RPV", "B.RPV"}) AddWorkout(name, "Squat");
  window.isWatched = true;

  UpdateAllWorkoutsButton_Click(editor);

  ASSERT_FALSE(window.progress.empty());
  const std::uint64_t total = window.progress.front().total;
  EXPECT_THAT(window.progress, testing::Each(testing::Field(&WorkDone::total, total)));
  EXPECT_EQ(window.progress.back().done, total);
  EXPECT_THAT(window.progress, testing::Contains(testing::Field(&WorkDone::done, total / 2)));
}

}  // namespace
}  // namespace repvolta
