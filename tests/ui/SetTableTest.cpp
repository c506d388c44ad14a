#include "base/Numbers.h"

#include "support/FormFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct ValueList {
  const char* name;
  SetSingles ExerciseRecord::* number;
};

constexpr ValueList kValueLists[] = {
    {"SetList1", &ExerciseRecord::SetValue1},
    {"SetList2", &ExerciseRecord::SetValue2},
    {"SetListInc1", &ExerciseRecord::SetIncrement1},
    {"SetListInc2", &ExerciseRecord::SetIncrement2},
    {"FreqList1", &ExerciseRecord::SetFrequency1},
    {"FreqList2", &ExerciseRecord::SetFrequency2},
};

/// The lists of an exercise with three sets.
class SetTable : public FormFixture {
 protected:
  SetTable() {
    AddExercise("Squat").NumberOfSets = 3;
    Show();
    OpenTab(1);
  }

  void ExpectSelected(int row) {
    for (const ValueList& list : kValueLists) {
      EXPECT_EQ(List(list.name).SelectedRow(), row) << list.name;
    }
    EXPECT_EQ(List("NextUpdateList").SelectedRow(), row);
  }
};

TEST_F(SetTable, AClickInAnyListSelectsTheSetInAll) {
  int row = 0;
  for (const ValueList& list : kValueLists) {
    row = (row + 1) % 3;
    ClickRow(list.name, row);
    ExpectSelected(row);
  }
  ClickRow("NextUpdateList", 1);
  ExpectSelected(1);
}

TEST_F(SetTable, TheArrowKeysGoWhereTheyPointInAWindowThatBeginsAtTheRight) {
  form->setLayoutDirection(Qt::RightToLeft);
  List("SetList1").setFocus();
  QTest::keyClick(&List("SetList1"), Qt::Key_Left);
  EXPECT_EQ(form->focusWidget(), &List("SetList2"));
  QTest::keyClick(&List("SetList2"), Qt::Key_Right);
  EXPECT_EQ(form->focusWidget(), &List("SetList1"));
}

TEST_F(SetTable, TheFocusSelectsNoRow) {
  List("SetList1").setFocus();
  for (const char* button :
       {"RemoveSelectedSetButton", "MoveSetUpListButton", "ManualDateResetButton"}) {
    Click(button);
  }
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(SetTable, TheRowThatTookTheRemovedOnesPlaceIsSelected) {
  ClickRow("FreqList1", 2);
  dialogs.answers = {"OK"};
  Click("RemoveSelectedSetButton");
  ExpectSelected(1);
}

TEST_F(SetTable, ADoubleClickAsksForANumberOfItsList) {
  float value = 3.5;
  for (const ValueList& list : kValueLists) {
    dialogs.answers = {ListNumberText(value)};
    DoubleClickRow(list.name, 1);
    EXPECT_EQ((Saved()[0].*list.number)[1], value) << list.name;
    ExpectSelected(1);
    value += 1;
  }
}

TEST_F(SetTable, ADoubleClickShowsTheDates) {
  DoubleClickRow("NextUpdateList", 1);
  EXPECT_THAT(dialogs.asked, ElementsAre(HasSubstr("Field 1 Next Update Date: ")));
}

TEST_F(SetTable, EnterDoesWhatADoubleClickDoes) {
  ClickRow("SetList2", 1);
  dialogs.answers = {"9"};
  QTest::keyClick(&List("SetList2"), Qt::Key_Return);
  EXPECT_EQ(Saved()[0].SetValue2[1], 9);
  dialogs.answers = {"8"};
  QTest::keyClick(&List("SetList2"), Qt::Key_Enter);
  EXPECT_EQ(Saved()[0].SetValue2[1], 8);
}

TEST_F(SetTable, EnterOnARowThatIsNotSelectedAsksNothing) {
  List("SetList1").setFocus();
  QTest::keyClick(&List("SetList1"), Qt::Key_Return);
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(SetTable, ADoubleClickBesideTheRowsAsksNothing) {
  state.Workout[0].NumberOfSets = 2;
  Show();
  const QPoint below =
      PlaceOf("SetList1", 1) +
      QPoint(0, List("SetList1").visualItemRect(List("SetList1").item(0)).height());
  ClickRow("SetList1", 0);
  QTest::mouseDClick(List("SetList1").viewport(), Qt::LeftButton, {}, below);
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

}  // namespace
}  // namespace repvolta
