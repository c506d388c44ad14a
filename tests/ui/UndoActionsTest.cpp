#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QMenu>

#include "ui/Mnemonics.h"

#include "support/FormFixture.h"

namespace repvolta {
namespace {

/// The window with the exercise "Bench & Press", which has two sets.
class UndoInTheWindow : public FormFixture {
 protected:
  UndoInTheWindow() {
    ExerciseRecord& exercise = AddExercise("Bench & Press");
    AddSet(exercise, 50, 10);
    AddSet(exercise, 60, 8);
    AddExercise("Plank");
    Show();
    form->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
    before = GetFile("workouts/Monday.RPV");
  }

  QAction& Undo() { return *form->findChild<QAction*>("UndoAction"); }
  QAction& Redo() { return *form->findChild<QAction*>("RedoAction"); }

  /// In the menu, without mnemonics.
  static std::string TextOf(const QAction& action) {
    return WithoutMnemonic(action.text()).toStdString();
  }

  void RemoveFirst() {
    dialogs.answers = {"OK"};
    ClickRow("ExerciseList", 0);
    Click("RemoveExerciseButton");
  }

  Bytes before;
};

TEST_F(UndoInTheWindow, CannotBeChosenWithoutAStep) {
  EXPECT_FALSE(Undo().isEnabled());
  EXPECT_FALSE(Redo().isEnabled());
  EXPECT_EQ(TextOf(Undo()), "Undo");
}

TEST_F(UndoInTheWindow, SaysInTheMenuWhatItIs) {
  RemoveFirst();
  EXPECT_TRUE(Undo().isEnabled());
  EXPECT_EQ(TextOf(Undo()), "Undo Remove Exercise 'Bench && Press'");
  EXPECT_FALSE(Redo().isEnabled());
  auto& menu = Get<QMenu>("EditMenu");
  Q_EMIT menu.aboutToShow();
  EXPECT_EQ(menu.actions().first(), &Undo());
  EXPECT_EQ(menu.actions()[1], &Redo());
}

TEST_F(UndoInTheWindow, HasTheUsualKeys) {
  RemoveFirst();
  QTest::keyClick(form.get(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(GetFile("workouts/Monday.RPV") == before);
  EXPECT_EQ(List("ExerciseList").SelectedRow(), 0);
  EXPECT_EQ(TextOf(Redo()), "Redo Remove Exercise 'Bench && Press'");
  QTest::keyClick(form.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(state.NumberOfExercises, 1);
}

TEST_F(UndoInTheWindow, ShowsTheExerciseAndTheRowOnItsTab) {
  OpenTab(1);
  dialogs.answers = {"99"};
  ClickRow("SetList1", 1);
  DoubleClickRow("SetList1", 1);
  OpenTab(2);
  Undo().trigger();
  EXPECT_EQ(Get<QTabWidget>("SSTab1").currentIndex(), 1);
  EXPECT_EQ(List("SetList1").SelectedRow(), 1);
  EXPECT_THAT(Rows("SetList1"), testing::ElementsAre("50", "60"));
}

TEST_F(UndoInTheWindow, TakesTheTickOfRandomMusicBack) {
  OpenTab(1);
  Click("RandomMusicCheckBox");
  EXPECT_TRUE(Get<QCheckBox>("RandomMusicCheckBox").isChecked());
  Undo().trigger();
  EXPECT_FALSE(Get<QCheckBox>("RandomMusicCheckBox").isChecked());
  EXPECT_EQ(GetFile("workouts/Monday.RPV"), before);
}

TEST_F(UndoInTheWindow, CannotBeChosenDuringAnUpdate) {
  RemoveFirst();
  bool wasEnabled = true;
  progress.whenLine = [&] { wasEnabled = Undo().isEnabled(); };
  std::filesystem::create_directory(folder.Path() + "player");
  state.Settings.OutputPath = folder.Path() + "player";
  Click("UpdateSelectedWorkoutButton");
  EXPECT_FALSE(wasEnabled);
  EXPECT_TRUE(Undo().isEnabled());
}

TEST_F(UndoInTheWindow, TellsWhyItCannotBe) {
  RemoveFirst();
  std::filesystem::remove("workouts/Monday.RPV");
  dialogs.asked.clear();
  Undo().trigger();
  ASSERT_EQ(dialogs.asked.size(), 1U);
  EXPECT_THAT(dialogs.asked[0],
              testing::StartsWith("message|Repvolta|workouts/Monday.RPV could not "
                                  "be changed: Another program has changed or "
                                  "deleted it meanwhile."));
  EXPECT_TRUE(Undo().isEnabled());
}

TEST_F(UndoInTheWindow, LeavesTheKeyToATextField) {
  RemoveFirst();
  QLineEdit field(form.get());
  field.show();
  field.setFocus();
  ASSERT_TRUE(field.hasFocus());
  QTest::keyClicks(&field, "text");
  QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(field.text(), "");
  EXPECT_EQ(state.NumberOfExercises, 1);
}

}  // namespace
}  // namespace repvolta
