#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QtTest/QTest>
#include <gtest/gtest.h>

#include "ui/SelectExerciseDialog.h"

#include "support/Accessibility.h"
#include "support/Modal.h"

namespace repvolta {
namespace {

/// The dialog with two types, of three exercises each.
class SelectExercise : public testing::Test {
 protected:
  void ClickOk() { QTest::mouseClick(&Find<QPushButton>(dialog, "OKButton"), Qt::LeftButton); }
  void ClickCancel() {
    QTest::mouseClick(&Find<QPushButton>(dialog, "CancelButton"), Qt::LeftButton);
  }

  SelectExerciseDialog dialog{{"Cardio", "Weights"}, [](const std::string& type) {
                                return std::vector<std::string>{type + " one", "", type + " two"};
                              }};
  QListWidget& types = Find<QListWidget>(dialog, "ExerciseTypeList");
  QListWidget& names = Find<QListWidget>(dialog, "ExerciseNameList");
  QCheckBox& enableUserName = Find<QCheckBox>(dialog, "EnableUserName");
  QLineEdit& userName = Find<QLineEdit>(dialog, "UserExerciseNameBox");
  QLineEdit& search = Find<QLineEdit>(dialog, "FindExerciseBox");
  QLabel& found = Find<QLabel>(dialog, "FoundLabel");
};

TEST_F(SelectExercise, OpensWithTheKeyboardInTheSearch) {
  dialog.show();
  EXPECT_EQ(dialog.focusWidget(), &search);
}

TEST_F(SelectExercise, FindsATypedNameInAllLists) {
  QTest::keyClicks(&search, "weights t");
  EXPECT_EQ(types.currentRow(), 1);
  EXPECT_EQ(names.currentRow(), 2);
  EXPECT_EQ(found.text(), "Weights: Weights two");
}

TEST_F(SelectExercise, TakesTheNameThatIsFound) {
  dialog.show();
  QTest::keyClicks(&search, "two");
  QTest::keyClick(&search, Qt::Key_Return);
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(dialog.SelectedName(), "Cardio two");
}

TEST_F(SelectExercise, MakesANameThatNoListHasAnOwnName) {
  dialog.show();
  QTest::keyClicks(&search, "OHP");
  EXPECT_EQ(found.text(), "In no list. Enter makes it a name of your own.");
  QTest::keyClick(&search, Qt::Key_Return);
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(dialog.focusWidget(), &userName);
  QTest::keyClick(&userName, Qt::Key_Return);
  EXPECT_EQ(dialog.SelectedName(), "OHP");
}

TEST_F(SelectExercise, ForgetsWhatWasFoundWhenNothingFitsAnyMore) {
  QTest::keyClicks(&search, "two");
  QTest::keyClicks(&search, "x");
  ClickOk();
  EXPECT_EQ(dialog.SelectedName(), "");
}

TEST_F(SelectExercise, GoesFromTheSearchToTheFoundNameWithTheArrowKey) {
  dialog.show();
  QTest::keyClicks(&search, "one");
  QTest::keyClick(&search, Qt::Key_Down);
  EXPECT_EQ(dialog.focusWidget(), &names);
  EXPECT_EQ(names.currentRow(), 0);
}

TEST_F(SelectExercise, GivesNothingOnEnterInAnEmptySearch) {
  dialog.show();
  QTest::keyClick(&search, Qt::Key_Return);
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(dialog.SelectedName(), "");
}

TEST_F(SelectExercise, OpensWithTheTypesAndNoNames) {
  ASSERT_EQ(types.count(), 2);
  EXPECT_EQ(types.item(0)->text(), "Cardio");
  EXPECT_EQ(types.item(1)->text(), "Weights");
  EXPECT_EQ(names.count(), 0);
}

TEST_F(SelectExercise, OpensWithTheListsEnabledAndTheBoxNot) {
  EXPECT_TRUE(types.isEnabled());
  EXPECT_TRUE(names.isEnabled());
  EXPECT_FALSE(userName.isEnabled());
  EXPECT_EQ(userName.text(), "");
}

TEST_F(SelectExercise, ListsTheNamesOfTheChosenTypeAsTheyStand) {
  types.setCurrentRow(1);
  ASSERT_EQ(names.count(), 3);
  EXPECT_EQ(names.item(0)->text(), "Weights one");
  EXPECT_EQ(names.item(1)->text(), "");
}

TEST_F(SelectExercise, ReplacesTheNamesWhenAnotherTypeIsChosen) {
  types.setCurrentRow(1);
  types.setCurrentRow(0);
  ASSERT_EQ(names.count(), 3);
  EXPECT_EQ(names.item(2)->text(), "Cardio two");
}

TEST_F(SelectExercise, GivesTheSelectedName) {
  types.setCurrentRow(0);
  names.setCurrentRow(2);
  ClickOk();
  EXPECT_EQ(dialog.SelectedName(), "Cardio two");
}

TEST_F(SelectExercise, GivesNothingWhenNothingIsSelected) {
  types.setCurrentRow(0);
  ClickOk();
  EXPECT_EQ(dialog.SelectedName(), "");
}

TEST_F(SelectExercise, DoesNotTakeTheRowThatTheFocusMakesCurrent) {
  dialog.show();
  types.setCurrentRow(0);
  names.setFocus();
  QApplication::processEvents();
  ClickOk();
  EXPECT_EQ(dialog.SelectedName(), "");
}

TEST_F(SelectExercise, LetsANameBeTypedInstead) {
  enableUserName.setChecked(true);
  EXPECT_FALSE(types.isEnabled());
  EXPECT_FALSE(names.isEnabled());
  EXPECT_TRUE(userName.isEnabled());
}

TEST_F(SelectExercise, PutsTheKeyboardIntoTheBoxForTheName) {
  dialog.show();
  types.setFocus();
  enableUserName.setChecked(true);
  EXPECT_EQ(dialog.focusWidget(), &userName);
}

TEST_F(SelectExercise, GoesBackToTheLists) {
  enableUserName.setChecked(true);
  enableUserName.setChecked(false);
  EXPECT_TRUE(types.isEnabled());
  EXPECT_TRUE(names.isEnabled());
  EXPECT_FALSE(userName.isEnabled());
}

TEST_F(SelectExercise, GivesTheTypedName) {
  types.setCurrentRow(0);
  names.setCurrentRow(0);
  enableUserName.setChecked(true);
  QTest::keyClicks(&userName, "Step-ups");
  ClickOk();
  EXPECT_EQ(dialog.SelectedName(), "Step-ups");
}

TEST_F(SelectExercise, GivesTheSelectedNameWhenTypingWasGivenUp) {
  types.setCurrentRow(0);
  names.setCurrentRow(0);
  userName.setText("Step-ups");
  ClickOk();
  EXPECT_EQ(dialog.SelectedName(), "Cardio one");
}

TEST_F(SelectExercise, GivesNothingWhenItIsCancelled) {
  types.setCurrentRow(0);
  names.setCurrentRow(0);
  ClickCancel();
  EXPECT_EQ(dialog.SelectedName(), "");
}

TEST_F(SelectExercise, GivesNothingOnEscape) {
  types.setCurrentRow(0);
  names.setCurrentRow(0);
  dialog.show();
  QTest::keyClick(&dialog, Qt::Key_Escape);
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(dialog.SelectedName(), "");
}

TEST_F(SelectExercise, TakesADoubleClickOnANameAsOk) {
  dialog.show();
  types.setCurrentRow(0);
  const QPoint name = names.visualItemRect(names.item(0)).center();
  QTest::mouseClick(names.viewport(), Qt::LeftButton, {}, name);
  QTest::mouseDClick(names.viewport(), Qt::LeftButton, {}, name);
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(dialog.SelectedName(), "Cardio one");
}

TEST_F(SelectExercise, CanBeUsedWithTheKeyboardAlone) {
  dialog.show();
  types.setFocus();
  QTest::keyClick(&types, Qt::Key_Down);
  QTest::keyClick(&types, Qt::Key_Tab);
  ASSERT_EQ(dialog.focusWidget(), &names);
  QTest::keyClick(&names, Qt::Key_Down);
  QTest::keyClick(&names, Qt::Key_Return);
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_NE(dialog.SelectedName(), "");
}

TEST_F(SelectExercise, IsHeardByDistinctNames) {
  enableUserName.setChecked(true);
  EXPECT_EQ(HeardNames(dialog), (std::map<std::string, int>{{"Cancel", 1},
                                                            {"Exercise name", 1},
                                                            {"Exercise type", 1},
                                                            {"Find an exercise:", 1},
                                                            {"OK", 1},
                                                            {"Own exercise name", 1},
                                                            {"Type a name instead", 1}}));
}

TEST_F(SelectExercise, HasNoMnemonicTwice) {
  for (const auto& [letter, count] : Mnemonics(dialog)) EXPECT_EQ(count, 1) << letter;
}

}  // namespace
}  // namespace repvolta
