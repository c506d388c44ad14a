#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editing/LoadedWorkout.h"
#include "editing/SetValueEditing.h"

#include "support/FailureOf.h"
#include "support/FullDisk.h"
#include "support/UndoFixture.h"

namespace repvolta {
namespace {

using testing::HasSubstr;

class UndoOfUnsaved : public UndoFixture {};

TEST_F(UndoOfUnsaved, StaysWhereItIsWhenTheFileCannotBeWritten) {
  ChangeWeight("99");
  const Bytes after = GetFile(kMonday);
  {
    const FullDisk full(1000);
    EXPECT_THAT(FailureOf([&] { Undo(); }), HasSubstr("could not be written"));
  }
  EXPECT_EQ(GetFile(kMonday), after);
  EXPECT_EQ(state.Workout[0].SetValue1[0], 99);
  Undo();
  EXPECT_EQ(GetFile(kMonday), before);
}

TEST_F(UndoOfUnsaved, TakesBackAChangeThatCouldNotBeSavedAlsoOnAFullDisk) {
  const FullDisk full(1000);
  EXPECT_THROW(ChangeWeight("99"), UnsavedChange);
  EXPECT_EQ(state.Workout[0].SetValue1[0], 99);
  EXPECT_EQ(editor.history->UndoName(), "Change First Value");
  Undo();
  EXPECT_EQ(state.Workout[0].SetValue1[0], 50);
  EXPECT_EQ(GetFile(kMonday), before);
}

TEST_F(UndoOfUnsaved, SavesAgainWhatCouldNotBeSavedAndWasUndone) {
  {
    const FullDisk full(1000);
    EXPECT_THROW(ChangeWeight("99"), UnsavedChange);
  }
  Undo();
  Redo();
  EXPECT_EQ(Weight(), 99);
}

TEST_F(UndoOfUnsaved, TellsAChangeThatCouldNotBeSavedFromTheOneThatSavedIt) {
  {
    const FullDisk full(1000);
    EXPECT_THROW(ChangeWeight("99"), UnsavedChange);
  }
  Answer({"12"});
  SetList2_DblClick(editor, 0);
  Undo();
  EXPECT_EQ(Weight(), 99);
  EXPECT_EQ(Saved()[0].SetValue2[0], 10);
  Undo();
  EXPECT_EQ(GetFile(kMonday), before);
}

TEST_F(UndoOfUnsaved, DoesNotReplaceTheirFileByAChangeThatCouldNotBeSaved) {
  Bytes theirs = before;
  theirs[100] ^= 1U;
  PutFile(kMonday, theirs);
  EXPECT_THROW(ChangeWeight("99"), UnsavedChange);
  EXPECT_THROW(ReloadChangedWorkout(editor), WorkoutReplaced);
  EXPECT_THROW(Undo(), FileError);
  EXPECT_EQ(GetFile(kMonday), theirs);
}

}  // namespace
}  // namespace repvolta
