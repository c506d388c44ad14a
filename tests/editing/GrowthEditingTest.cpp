#include "base/ProgramFiles.h"
#include "editing/GrowthEditing.h"

#include "support/EditorFixture.h"
#include "support/FailureOf.h"
#include "support/FullDisk.h"

namespace repvolta {
namespace {

using GrowthEditing = EditorFixture;

TEST_F(GrowthEditing, TheUpdateDaysAreKept) {
  ChooseUpdateDays(editor, UpdateDays(0b0000001));
  EXPECT_EQ(ChosenUpdateDays(editor), UpdateDays(0b0000001));
  EXPECT_EQ(GetTextFile(kOptionsFile), "updates-on-monday = yes\n");
}

TEST_F(GrowthEditing, TheExerciseIsShownAlsoWhenTheyCannotBeKept) {
  AddNewExercise("Squat").ExerciseName = "Row";
  const FullDisk disk(10);
  EXPECT_NE(FailureOf([&] { ChooseUpdateDays(editor, UpdateDays(0b0000001)); }), "");
  EXPECT_EQ(screen.exerciseName, "Row");
  EXPECT_EQ(ChosenUpdateDays(editor), UpdateDays(0b0000001));
}

}  // namespace
}  // namespace repvolta
