#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/WorkoutFiles.h"
#include "base/ProgramFiles.h"
#include "editing/WorkoutEditing.h"
#include "keeping/Versions.h"

#include "support/EditorFixture.h"
#include "support/SaveChange.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// The workout "Monday" with one exercise, and what is kept of it before it is changed.
class KeptVersionsOfEdits : public EditorFixture {
 protected:
  KeptVersionsOfEdits() {
    AddNewExercise("Squat");
    fs::remove_all(kVersionFolder);
    state.Kept = {};
  }

  void ChangeTime(std::int16_t seconds) {
    state.Workout[0].TargetExerciseTime = seconds;
    SaveChange(editor);
  }

  static std::vector<BeforeWhat> Reasons(const std::string& workout = "Monday.RPV") {
    std::vector<BeforeWhat> reasons;
    for (const Version& version : VersionsOf(workout)) reasons.push_back(version.name.before);
    return reasons;
  }
};

TEST_F(KeptVersionsOfEdits, AreTheFileAsItWasBeforeTheFirstChangeOfADay) {
  const Bytes before = GetFile("workouts/Monday.RPV");
  ChangeTime(100);
  ChangeTime(200);
  const auto versions = VersionsOf("Monday.RPV");
  ASSERT_EQ(versions.size(), 1U);
  EXPECT_EQ(GetFile(versions[0].path), before);
}

TEST_F(KeptVersionsOfEdits, AreKeptAgainOnTheNextDay) {
  ChangeTime(100);
  clock.Set(clock.Now() + 1);
  ChangeTime(200);
  EXPECT_THAT(Reasons(), ElementsAre(BeforeWhat::kChange, BeforeWhat::kChange));
}

TEST_F(KeptVersionsOfEdits, AreKeptOnceADayHoweverOftenTheProgramIsStarted) {
  ChangeTime(100);
  state.Kept = {};
  ChangeTime(200);
  EXPECT_EQ(Reasons().size(), 1U);
}

TEST_F(KeptVersionsOfEdits, ThatAreNotPossibleAreToldOnceAndCostNoEdit) {
  PutFile("versions", "in the way");
  ChangeTime(100);
  ChangeTime(200);
  ASSERT_EQ(dialogs.asked.size(), 1U);
  EXPECT_THAT(dialogs.asked[0], HasSubstr("No earlier version of the workout is kept: "));
  state.Workout[0].TargetExerciseTime = 0;
  ReadWorkoutAgain(state);
  EXPECT_EQ(state.Workout[0].TargetExerciseTime, 200);
}

TEST_F(KeptVersionsOfEdits, AreNotMissedWithoutAWorkout) {
  state.WorkoutFileName = "";
  SaveChange(editor);
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(KeptVersionsOfEdits, AreWhatANewWorkoutOfTheSameNameReplaces) {
  const Bytes before = GetFile("workouts/Monday.RPV");
  dialogs.answers = {"Monday"};
  CreateNewWorkoutButton_Click(editor);
  EXPECT_THAT(Reasons(), ElementsAre(BeforeWhat::kReplacement));
  EXPECT_EQ(GetFile(VersionsOf("Monday.RPV")[0].path), before);
}

TEST_F(KeptVersionsOfEdits, AreNoneOfANewWorkout) {
  dialogs.answers = {"Tuesday"};
  CreateNewWorkoutButton_Click(editor);
  EXPECT_THAT(Reasons("Tuesday.RPV"), IsEmpty());
}

TEST_F(KeptVersionsOfEdits, AreWhatIsDeleted) {
  fs::copy_file("workouts/Monday.RPV", "Monday.RPV");
  dialogs.answers = {"OK"};
  DeleteSelectedWorkoutButton_Click(editor);
  EXPECT_FALSE(fs::exists("Monday.RPV"));
  EXPECT_THAT(Reasons(), ElementsAre(BeforeWhat::kDeletion));
}

}  // namespace
}  // namespace repvolta
