#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RecordFormat.h"
#include "app/WorkoutFiles.h"
#include "editing/SetEditing.h"
#include "editing/Undo.h"
#include "keeping/Versions.h"

#include "support/EditorFixture.h"
#include "support/FailureOf.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::SizeIs;

/// Steps over whole files: Monday and Friday are there, Sunday is not.
class ReplacedFiles : public EditorFixture {
 protected:
  ReplacedFiles() {
    ListEmptyWorkouts({"Friday"});
    AddNewExercise("Squat");
    before = GetFile(kMonday);
    other = before;
    other[7] ^= 1U;
  }

  std::string Replace(const std::vector<NewWorkoutFile>& files) {
    return editor.history->ReplaceFiles(step, BeforeWhat::kRestore, files);
  }

  static constexpr const char* kMonday = "workouts/Monday.RPV";
  static constexpr const char* kFriday = "workouts/Friday.RPV";
  static constexpr const char* kSunday = "workouts/Sunday.RPV";
  const StepDescription step{
      .name = "Restore", .undone = {.workout = "Monday.RPV"}, .done = {.workout = "Friday.RPV"}};
  Bytes before;
  Bytes other;
};

TEST_F(ReplacedFiles, AreOneStep) {
  EXPECT_EQ(Replace({{"Monday.RPV", other}, {"Friday.RPV", std::nullopt}, {"Sunday.RPV", before}}),
            "");
  EXPECT_EQ(GetFile(kMonday), other);
  EXPECT_FALSE(fs::exists(kFriday));
  EXPECT_EQ(GetFile(kSunday), before);
  UndoAction_Trigger(editor);
  EXPECT_EQ(GetFile(kMonday), before);
  EXPECT_EQ(GetFile(kFriday), EncodeWorkout({}));
  EXPECT_FALSE(fs::exists(kSunday));
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
  RedoAction_Trigger(editor);
  EXPECT_EQ(GetFile(kMonday), other);
  EXPECT_FALSE(fs::exists(kFriday));
  EXPECT_EQ(state.WorkoutFileName, "") << "Friday is gone.";
}

TEST_F(ReplacedFiles, AreKeptAsTheyWere) {
  Replace({{"Monday.RPV", other}, {"Sunday.RPV", before}});
  const auto versions = VersionsOf("Monday.RPV");
  ASSERT_THAT(versions, SizeIs(1));
  EXPECT_EQ(versions[0].name.before, BeforeWhat::kRestore);
  EXPECT_EQ(GetFile(versions[0].path), before);
}

TEST_F(ReplacedFiles, AreNoStepWhenTheyAreTheSame) {
  Replace({{"Monday.RPV", before}, {"Sunday.RPV", std::nullopt}});
  EXPECT_EQ(editor.history->UndoName(), "");
  EXPECT_THAT(VersionsOf("Monday.RPV"), SizeIs(0));
}

TEST_F(ReplacedFiles, AreFoundInAnotherCase) {
  Replace({{"monday.rpv", other}});
  EXPECT_EQ(GetFile(kMonday), other);
  EXPECT_FALSE(fs::exists("workouts/monday.rpv"));
}

TEST_F(ReplacedFiles, StayAsTheyAreWhenOneOfThemCannotBeReplaced) {
  fs::create_directory("workouts/.Sunday.RPV.new");
  PutFile("workouts/.Sunday.RPV.new/in the way", "");
  EXPECT_THROW(
      Replace({{"Monday.RPV", other}, {"Friday.RPV", std::nullopt}, {"Sunday.RPV", before}}),
      FileError);
  EXPECT_EQ(GetFile(kMonday), before);
  EXPECT_EQ(GetFile(kFriday), EncodeWorkout({}));
  EXPECT_EQ(editor.history->UndoName(), "");
}

TEST_F(ReplacedFiles, StayAsTheyAreWhenOneOfThemCannotBePutBack) {
  Replace({{"Monday.RPV", other}, {"Friday.RPV", std::nullopt}});
  fs::create_directory("workouts/.Friday.RPV.new");
  PutFile("workouts/.Friday.RPV.new/in the way", "");
  EXPECT_THAT(FailureOf([&] { UndoAction_Trigger(editor); }), HasSubstr("Friday.RPV"));
  EXPECT_EQ(GetFile(kMonday), other);
  EXPECT_FALSE(fs::exists(kFriday));
  EXPECT_EQ(editor.history->UndoName(), "Restore");
}

TEST_F(ReplacedFiles, AreReplacedAlsoWhenTheyAreTooLargeToBeHeld) {
  Replace({{"Monday.RPV", other}});
  PutFile(kMonday, Bytes(2'000'000));
  Replace({{"Monday.RPV", before}, {"Friday.RPV", std::nullopt}});
  EXPECT_EQ(GetFile(kMonday), before);
  EXPECT_FALSE(fs::exists(kFriday));
  EXPECT_EQ(editor.history->UndoName(), "");
}

TEST_F(ReplacedFiles, CannotBeUndoneOnceTheHistoryIsCleared) {
  Replace({{"Monday.RPV", other}});
  editor.history->Clear();
  EXPECT_EQ(editor.history->UndoName(), "");
  UndoAction_Trigger(editor);
  EXPECT_EQ(GetFile(kMonday), other);
}

TEST_F(ReplacedFiles, OfAWorkoutInMemoryAreShownByGoingThere) {
  Replace({{"Monday.RPV", EncodeWorkout({})}});
  GoTo(editor, {.workout = "Monday.RPV"});
  EXPECT_EQ(state.NumberOfExercises, 0);
  EXPECT_EQ(screen.SelectedWorkout(), 1);
}

TEST_F(ReplacedFiles, OlderThanTheLimitCannotBeUndone) {
  for (int i = 0; i <= 500; ++i) UnitsSelection_Click(editor, i % 2 == 0 ? 1 : 0);
  int undone = 0;
  for (; !editor.history->UndoName().empty(); ++undone) editor.history->Undo();
  EXPECT_EQ(undone, 500);
}

}  // namespace
}  // namespace repvolta
