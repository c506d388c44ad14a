#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/WorkoutFiles.h"
#include "base/FileNames.h"
#include "editing/WorkoutCopies.h"
#include "keeping/Versions.h"

#include "support/EditorFixture.h"
#include "support/SaveChange.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// The workout "Monday" with the exercises "Squat" and "Row".
class WorkoutCopies : public EditorFixture {
 protected:
  WorkoutCopies() {
    AddNewExercise("Squat").NumberOfSets = 2;
    AddNewExercise("Row");
    SaveWorkout(state);
    LoadWorkoutNames(state);
    before_ = GetFile("workouts/Monday.RPV");
  }

  std::vector<std::string> ExercisesOf(const std::string& workout) const {
    ProgramState other = state;
    other.WorkoutFileName = workout;
    LoadWorkout(other);
    std::vector<std::string> names;
    for (int i = 0; i < other.NumberOfExercises; ++i) {
      names.push_back(other.Workout[i].ExerciseName.Trimmed());
    }
    return names;
  }

  Bytes before_;
};

TEST_F(WorkoutCopies, HaveTheSameBytes) {
  dialogs.answers = {"Tuesday"};
  DuplicateWorkout(editor);
  EXPECT_EQ(GetFile("workouts/Tuesday.RPV"), before_);
  EXPECT_EQ(GetFile("workouts/Monday.RPV"), before_);
}

TEST_F(WorkoutCopies, AreLoadedAndChosen) {
  dialogs.answers = {"Tuesday"};
  DuplicateWorkout(editor);
  EXPECT_EQ(state.WorkoutFileName, "Tuesday.RPV");
  EXPECT_EQ(screen.workouts.selected, 1);
  EXPECT_THAT(screen.exercises.rows, ElementsAre(HasSubstr("Squat"), HasSubstr("Row")));
  EXPECT_EQ(state.KnownFile->name, "Tuesday.RPV");
}

TEST_F(WorkoutCopies, NeverReplaceAWorkout) {
  PutFile("workouts/Tuesday.RPV", "another");
  for (const char* name : {"Tuesday", "TUESDAY", "Monday", "monday"}) {
    dialogs.answers = {name};
    DuplicateWorkout(editor);
    EXPECT_THAT(dialogs.asked.back(), HasSubstr("There is a workout ")) << name;
  }
  EXPECT_EQ(GetTextFile("workouts/Tuesday.RPV"), "another");
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
}

TEST_F(WorkoutCopies, NeedANameThatAFileCanHave) {
  dialogs.answers = {"a/b"};
  DuplicateWorkout(editor);
  EXPECT_THAT(dialogs.asked.back(), HasSubstr("A workout cannot have this name"));
}

TEST_F(WorkoutCopies, AreNotMadeWhenThePersonCancels) {
  dialogs.answers = {"", "", ""};
  DuplicateWorkout(editor);
  RenameWorkout(editor);
  CopyExercise(editor, 0);
  EXPECT_THAT(ListFiles("workouts/", ".RPV"), ElementsAre("Monday.RPV"));
  EXPECT_EQ(GetFile("workouts/Monday.RPV"), before_);
}

class RenamedWorkout : public WorkoutCopies {};

TEST_F(RenamedWorkout, IsTheSameFileUnderItsNewName) {
  dialogs.answers = {"Push"};
  RenameWorkout(editor);
  EXPECT_EQ(GetFile("workouts/Push.RPV"), before_);
  EXPECT_FALSE(fs::exists("workouts/Monday.RPV"));
  EXPECT_THAT(screen.workouts.rows, ElementsAre("Push.RPV"));
  EXPECT_EQ(screen.workouts.selected, 0);
}

TEST_F(RenamedWorkout, IsSavedUnderItsNewName) {
  dialogs.answers = {"Push"};
  RenameWorkout(editor);
  state.Workout[0].ExerciseName = "Deadlift";
  SaveChange(editor);
  EXPECT_THAT(ExercisesOf("Push.RPV"), ElementsAre("Deadlift", "Row"));
  EXPECT_FALSE(fs::exists("workouts/Monday.RPV"));
}

TEST_F(RenamedWorkout, KeepsItsExerciseAndItsVersions) {
  state.CurrentExercise = 1;
  SaveChange(editor);
  const std::size_t versions = VersionsOf("Monday.RPV").size();
  ASSERT_GT(versions, 0U);
  dialogs.answers = {"Push"};
  RenameWorkout(editor);
  EXPECT_EQ(state.CurrentExercise, 1);
  EXPECT_EQ(VersionsOf("Push.RPV").size(), versions);
  EXPECT_THAT(VersionsOf("Monday.RPV"), IsEmpty());
}

TEST_F(RenamedWorkout, MayDifferInCaseOnly) {
  dialogs.answers = {"monday"};
  RenameWorkout(editor);
  EXPECT_THAT(ListFiles("workouts/", ".RPV"), ElementsAre("monday.RPV"));
  EXPECT_EQ(state.WorkoutFileName, "monday.RPV");
}

TEST_F(RenamedWorkout, NeverReplacesAnother) {
  PutFile("workouts/Push.RPV", "another");
  dialogs.answers = {"push"};
  RenameWorkout(editor);
  EXPECT_EQ(GetTextFile("workouts/Push.RPV"), "another");
  EXPECT_EQ(GetFile("workouts/Monday.RPV"), before_);
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
}

class CopiedExercise : public WorkoutCopies {
 protected:
  CopiedExercise() {
    dialogs.answers = {"Tuesday"};
    DuplicateWorkout(editor);
    state.WorkoutFileName = "Monday.RPV";
    LoadWorkout(state);
    dialogs.asked.clear();
  }
};

TEST_F(CopiedExercise, StandsBehindTheOthersThere) {
  dialogs.answers = {"Tuesday"};
  CopyExercise(editor, 0);
  EXPECT_THAT(ExercisesOf("Tuesday.RPV"), ElementsAre("Squat", "Row", "Squat"));
  EXPECT_EQ(GetFile("workouts/Monday.RPV"), before_);
  EXPECT_EQ(dialogs.asked.back(), "message|Copy Exercise|Squat is now in Tuesday, too.");
}

TEST_F(CopiedExercise, HasAllThatTheOtherHas) {
  dialogs.answers = {"Tuesday"};
  CopyExercise(editor, 0);
  ProgramState other = state;
  other.WorkoutFileName = "Tuesday.RPV";
  LoadWorkout(other);
  EXPECT_TRUE(other.Workout[2] == state.Workout[0]);
}

TEST_F(CopiedExercise, MayStandInTheSameWorkout) {
  dialogs.answers = {"Monday"};
  CopyExercise(editor, 0);
  EXPECT_THAT(ExercisesOf("Monday.RPV"), ElementsAre("Squat", "Row", "Squat"));
  EXPECT_EQ(screen.exercises.selected, 2);
}

TEST_F(CopiedExercise, NeedsRoom) {
  while (state.NumberOfExercises < MaxExercises) AddNewExercise("Row");
  const Bytes full = GetFile("workouts/Monday.RPV");
  dialogs.answers = {"Monday"};
  CopyExercise(editor, 0);
  EXPECT_THAT(dialogs.asked.back(), HasSubstr("there is no room for more"));
  EXPECT_EQ(GetFile("workouts/Monday.RPV"), full);
}

TEST_F(CopiedExercise, IsNotPutIntoAWorkoutThatIsGone) {
  fs::remove("workouts/Tuesday.RPV");
  dialogs.answers = {"Tuesday"};
  CopyExercise(editor, 0);
  EXPECT_EQ(dialogs.asked.back(), "message|Copy Exercise|Tuesday.RPV is gone.");
  EXPECT_FALSE(fs::exists("workouts/Tuesday.RPV"));
}

TEST_F(CopiedExercise, KeepsTheOtherWorkoutAsItWas) {
  const Bytes other = GetFile("workouts/Tuesday.RPV");
  dialogs.answers = {"Tuesday"};
  CopyExercise(editor, 0);
  const auto versions = VersionsOf("Tuesday.RPV");
  ASSERT_EQ(versions.size(), 1U);
  EXPECT_EQ(GetFile(versions[0].path), other);
}

}  // namespace
}  // namespace repvolta
