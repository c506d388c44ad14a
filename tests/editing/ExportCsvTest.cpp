#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/WorkoutFiles.h"
#include "editing/ExportCsv.h"
#include "editing/WorkoutCsv.h"

#include "support/EditorFixture.h"
#include "support/FailureOf.h"
#include "support/FullDisk.h"
#include "support/UnreadableFile.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/// The workouts "Monday", which is loaded and has one exercise with two sets, and "Tuesday".
class CsvExport : public EditorFixture {
 protected:
  CsvExport() {
    ListEmptyWorkouts({"Tuesday"});
    AddNewExercise("Squat").NumberOfSets = 2;
    Show();
  }

  /// A count of sets that no workout can have.
  void Damage(const std::string& workout) {
    ProgramState other;
    other.NumberOfExercises = 1;
    other.Workout[0].ExerciseName = "Row";
    other.Workout[0].NumberOfSets = 99;
    PutFile("workouts/" + workout + ".RPV", EncodeWorkout(other.Workout));
  }

  const std::string path_ = folder.Path() + "table.csv";
};

TEST_F(CsvExport, WritesTheWorkoutInMemory) {
  dialogs.answers = {path_};
  ExportCsv(editor);
  EXPECT_EQ(GetTextFile(path_), CsvHeader() + CsvLines(state, kToday));
  EXPECT_THAT(dialogs.asked,
              ElementsAre("save|Export as CSV|Monday.csv",
                          "message|Export as CSV|Monday with 2 lines is in " + path_ + "."));
}

TEST_F(CsvExport, WritesAChangeThatCouldNotBeSaved) {
  state.Workout[0].ExerciseName = "Deadlift";
  dialogs.answers = {path_};
  ExportAllCsv(editor);
  EXPECT_THAT(GetTextFile(path_), HasSubstr("\r\nMonday,1,Deadlift,"));
}

TEST_F(CsvExport, WritesAllWorkoutsInTheirOrder) {
  dialogs.answers = {path_};
  ExportAllCsv(editor);
  ProgramState tuesday;
  tuesday.WorkoutFileName = "Tuesday.RPV";
  EXPECT_EQ(GetTextFile(path_), CsvHeader() + CsvLines(state, kToday) + CsvLines(tuesday, kToday));
  EXPECT_THAT(dialogs.asked,
              ElementsAre("save|Export as CSV|Workouts.csv",
                          "message|Export as CSV|2 workouts with 3 lines are in " + path_ + "."));
}

TEST_F(CsvExport, LeavesTheLoadedWorkoutAsItIs) {
  dialogs.answers = {path_};
  ExportAllCsv(editor);
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
  EXPECT_EQ(state.Workout[0].ExerciseName.Text(), "Squat");
  EXPECT_FALSE(WorkoutChangedOnDisk(state));
}

TEST_F(CsvExport, OfAllNeedsNoLoadedWorkout) {
  state.WorkoutFileName = "";
  dialogs.answers = {path_};
  ExportCsv(editor);
  EXPECT_TRUE(dialogs.asked.empty());
  ExportAllCsv(editor);
  EXPECT_THAT(dialogs.asked.back(), HasSubstr("2 workouts"));
}

TEST_F(CsvExport, WritesNothingWhenThePersonCancels) {
  dialogs.answers = {"", ""};
  ExportCsv(editor);
  ExportAllCsv(editor);
  EXPECT_EQ(dialogs.asked.size(), 2U);
  EXPECT_FALSE(std::filesystem::exists(path_));
}

TEST_F(CsvExport, LeavesOutADamagedWorkoutAndNamesIt) {
  Damage("Tuesday");
  dialogs.answers = {path_};
  ExportAllCsv(editor);
  EXPECT_EQ(GetTextFile(path_), CsvHeader() + CsvLines(state, kToday));
  EXPECT_THAT(dialogs.asked.back(), HasSubstr("1 workout with 2 lines"));
  EXPECT_THAT(dialogs.asked.back(), HasSubstr("\rLeft out: Tuesday.RPV seems to be damaged"));
}

TEST_F(CsvExport, LeavesOutAWorkoutThatCannotBeReadAndSaysWhy) {
  const UnreadableFile unreadable("workouts/Tuesday.RPV");
  dialogs.answers = {path_};
  ExportAllCsv(editor);
  EXPECT_THAT(dialogs.asked.back(), HasSubstr("\rLeft out: workouts/Tuesday.RPV"));
  EXPECT_THAT(dialogs.asked.back(), HasSubstr("Permission denied"));
}

TEST_F(CsvExport, AsksForNoFileWithoutAWholeWorkout) {
  state.Workout[0].NumberOfSets = 99;
  ExportCsv(editor);
  EXPECT_THAT(dialogs.asked, ElementsAre(HasSubstr("There is no workout to export.\rLeft out: "
                                                   "Monday.RPV seems to be damaged")));
}

TEST_F(CsvExport, ReplacesAFileOnlyAsAWhole) {
  PutFile(path_, "before");
  dialogs.answers = {path_};
  {
    const FullDisk full(100);
    EXPECT_THAT(FailureOf([&] { ExportCsv(editor); }), HasSubstr("table.csv could not be written"));
  }
  EXPECT_EQ(GetTextFile(path_), "before");
  EXPECT_THAT(dialogs.asked, Not(testing::Contains(HasSubstr("message"))));
  dialogs.answers = {path_};
  ExportCsv(editor);
  EXPECT_EQ(GetTextFile(path_), CsvHeader() + CsvLines(state, kToday));
}

}  // namespace
}  // namespace repvolta
