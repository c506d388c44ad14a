#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/WorkoutFiles.h"
#include "editing/RestoreVersion.h"
#include "editing/Undo.h"
#include "keeping/Versions.h"

#include "support/EditorFixture.h"
#include "support/OrdinaryRights.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// "Monday" has the exercises "Squat" and "Row"; its version is of before "Row" was added, with
/// bytes that the program does not use.
class RestoredVersion : public EditorFixture {
 protected:
  RestoredVersion() {
    AddNewExercise("Squat");
    fs::remove_all("versions");
    state.Workout[0].ReservedTail.bytes[200] = 7;
    SaveWorkout(state);
    KeepVersion(kMonday, BeforeWhat::kUpdate, clock.Now() - 1);
    before_ = GetFile(kMonday);
    AddNewExercise("Row");
    now_ = GetFile(kMonday);
    dialogs.chooseVersion = [](const EarlierVersions& versions) { return versions.Read(0, 0); };
  }

  static std::vector<BeforeWhat> Reasons() {
    std::vector<BeforeWhat> reasons;
    for (const Version& version : VersionsOf("Monday.RPV")) reasons.push_back(version.name.before);
    return reasons;
  }

  static constexpr const char* kMonday = "workouts/Monday.RPV";

  Bytes before_;
  Bytes now_;
};

TEST_F(RestoredVersion, HasTheBytesThatWereKept) {
  RestoreVersion(editor);
  EXPECT_EQ(GetFile(kMonday), before_);
}

TEST_F(RestoredVersion, IsLoadedAndShown) {
  RestoreVersion(editor);
  EXPECT_THAT(screen.exercises.rows, ElementsAre("Squat"));
  EXPECT_EQ(state.NumberOfExercises, 1);
  EXPECT_EQ(screen.workouts.selected, 0);
  EXPECT_TRUE(screen.workoutCanBeEdited);
  EXPECT_FALSE(WorkoutChangedOnDisk(state));
}

TEST_F(RestoredVersion, KeepsTheWorkoutAsItWasBefore) {
  RestoreVersion(editor);
  ASSERT_THAT(Reasons(), ElementsAre(BeforeWhat::kUpdate, BeforeWhat::kRestore));
  EXPECT_EQ(GetFile(VersionsOf("Monday.RPV")[1].path), now_);
}

TEST_F(RestoredVersion, CanBeTakenBackByAnother) {
  RestoreVersion(editor);
  clock.Set(clock.Now() + 0.01);
  RestoreVersion(editor);
  EXPECT_EQ(GetFile(kMonday), now_);
}

TEST_F(RestoredVersion, IsNoneWhenNoneIsChosen) {
  dialogs.chooseVersion = {};
  RestoreVersion(editor);
  EXPECT_EQ(GetFile(kMonday), now_);
  EXPECT_EQ(Reasons().size(), 1U);
}

TEST_F(RestoredVersion, NeedsAKeptOne) {
  fs::remove_all("versions");
  RestoreVersion(editor);
  EXPECT_THAT(dialogs.asked,
              ElementsAre("message|Restore an Earlier Version|No version of a workout is kept yet. "
                          "A workout is kept before the first change of a day and before each "
                          "update."));
}

TEST_F(RestoredVersion, OfADeletedWorkoutComesBackUnderItsName) {
  fs::remove(kMonday);
  state.WorkoutFileName.clear();
  RestoreVersion(editor);
  EXPECT_EQ(GetFile(kMonday), before_);
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
  EXPECT_THAT(screen.workouts.rows, ElementsAre("Monday.RPV"));
  EXPECT_EQ(screen.workouts.selected, 0);
  EXPECT_THAT(Reasons(), ElementsAre(BeforeWhat::kUpdate));
}

TEST_F(RestoredVersion, OfADeletedWorkoutKeepsTheOneThatHasItsNameByThen) {
  fs::remove(kMonday);
  state.WorkoutFileName.clear();
  dialogs.chooseVersion = [](const EarlierVersions& versions) {
    PutFile(kMonday, "another");
    return versions.Read(0, 0);
  };
  RestoreVersion(editor);
  EXPECT_EQ(GetFile(kMonday), before_);
  EXPECT_EQ(GetTextFile(VersionsOf("Monday.RPV").back().path), "another");
}

TEST_F(RestoredVersion, OfADeletedWorkoutReplacesTheOneOfItsNameInAnotherCase) {
  fs::rename(kMonday, "workouts/MONDAY.RPV");
  state.WorkoutFileName.clear();
  RestoreVersion(editor);
  EXPECT_THAT(screen.workouts.rows, ElementsAre("MONDAY.RPV"));
  EXPECT_EQ(GetFile("workouts/MONDAY.RPV"), before_);
  EXPECT_EQ(state.WorkoutFileName, "MONDAY.RPV");
}

TEST_F(RestoredVersion, OfAnotherWorkoutLoadsThat) {
  ListEmptyWorkouts({"Tuesday"});
  state.WorkoutFileName = "Tuesday.RPV";
  LoadWorkout(state);
  dialogs.chooseVersion = [](const EarlierVersions& versions) { return versions.Read(1, 0); };
  const Bytes tuesday = GetFile("workouts/Tuesday.RPV");
  RestoreVersion(editor);
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
  EXPECT_EQ(GetFile(kMonday), before_);
  EXPECT_EQ(GetFile("workouts/Tuesday.RPV"), tuesday);
  EXPECT_EQ(screen.workouts.rows.at(static_cast<std::size_t>(screen.workouts.selected)),
            "Monday.RPV");
}

TEST_F(RestoredVersion, IsNotSilentlyRestoredWhereThePresentOneCannotBeKept) {
  const OrdinaryRights rights;
  fs::permissions("versions/Monday", fs::perms::owner_read | fs::perms::owner_exec);
  dialogs.answers = {"Cancel"};
  RestoreVersion(editor);
  EXPECT_EQ(GetFile(kMonday), now_);
  EXPECT_THAT(dialogs.asked.back(),
              HasSubstr("confirm|Restore an Earlier Version|Monday cannot be kept as it is now:"));
  dialogs.answers = {"OK"};
  RestoreVersion(editor);
  EXPECT_EQ(GetFile(kMonday), before_);
}

TEST_F(RestoredVersion, ReplacesNothingThatIsTooLargeToBeKept) {
  fs::resize_file(kMonday, 1'000'001);
  state.KnownFile.reset();
  EXPECT_THROW(RestoreVersion(editor), FileError);
  EXPECT_EQ(fs::file_size(kMonday), 1'000'001U);
}

TEST_F(RestoredVersion, ThatCannotBeWrittenLosesNothing) {
  const OrdinaryRights rights;
  fs::permissions("workouts", fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_THROW(RestoreVersion(editor), FileError);
  fs::permissions("workouts", fs::perms::owner_all);
  EXPECT_EQ(GetFile(kMonday), now_);
  EXPECT_EQ(state.NumberOfExercises, 2);
}

TEST_F(RestoredVersion, IsRestoredAlsoWhenItIsThinnedAwayMeanwhile) {
  clock.Set(clock.Now() + 1000);
  RestoreVersion(editor);
  EXPECT_EQ(GetFile(kMonday), before_);
  EXPECT_THAT(Reasons(), ElementsAre(BeforeWhat::kRestore));
}

TEST_F(RestoredVersion, IsAStepThatCanBeUndoneAndDoneAgain) {
  RestoreVersion(editor);
  EXPECT_EQ(editor.history->UndoName(), "Restore Earlier Version of 'Monday'");
  UndoAction_Trigger(editor);
  EXPECT_EQ(GetFile(kMonday), now_);
  EXPECT_THAT(screen.exercises.rows, ElementsAre("Squat", "Row"));
  RedoAction_Trigger(editor);
  EXPECT_EQ(GetFile(kMonday), before_);
  EXPECT_THAT(screen.exercises.rows, ElementsAre("Squat"));
}

TEST_F(RestoredVersion, OfADeletedWorkoutIsGoneAgainWhenItIsUndone) {
  fs::remove(kMonday);
  state.WorkoutFileName.clear();
  RestoreVersion(editor);
  UndoAction_Trigger(editor);
  EXPECT_FALSE(fs::exists(kMonday));
  EXPECT_EQ(state.WorkoutFileName, "");
  EXPECT_THAT(screen.workouts.rows, IsEmpty());
}

TEST_F(RestoredVersion, ShowsTheExerciseThatWasShownIfItIsThere) {
  AddNewExercise("Plank");
  KeepVersion(kMonday, BeforeWhat::kUpdate, clock.Now());
  state.Workout[0].TargetExerciseTime = 99;
  state.CurrentExercise = 2;
  SaveWorkout(state);
  RestoreVersion(editor);
  EXPECT_EQ(state.CurrentExercise, 2);
}

}  // namespace
}  // namespace repvolta
