#include <QDate>
#include <QLocale>

#include "base/Numbers.h"

#include "support/FormFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

struct ValueList {
  const char* name;
  SetSingles ExerciseRecord::*number;
};

constexpr ValueList kValueLists[] = {
    {"SetList1", &ExerciseRecord::SetValue1},
    {"SetList2", &ExerciseRecord::SetValue2},
    {"SetListInc1", &ExerciseRecord::SetIncrement1},
    {"SetListInc2", &ExerciseRecord::SetIncrement2},
    {"FreqList1", &ExerciseRecord::SetFrequency1},
    {"FreqList2", &ExerciseRecord::SetFrequency2},
};

/// The exercise tab with two sets.
class SetValueEditing : public FormFixture {
 protected:
  SetValueEditing() {
    AddExercise("Squat").NumberOfSets = 2;
    Show();
    OpenTab(1);
  }

  ExerciseRecord& Exercise() { return state.Workout[0]; }

  void Change(const char* list, int row, const std::string& answer) {
    dialogs.asked.clear();
    dialogs.answers = {answer};
    DoubleClickRow(list, row);
  }
};

TEST_F(SetValueEditing, ADoubleClickAsksForTheNewValue) {
  for (const ValueList& list : kValueLists) {
    Change(list.name, 0, "");
    EXPECT_THAT(dialogs.asked, ElementsAre("ask|Change Exercise Value|Enter new Value:"))
        << list.name;
  }
}

TEST_F(SetValueEditing, EachListChangesItsOwnNumberAndSavesIt) {
  float value = 3.5;
  for (const ValueList& list : kValueLists) {
    ExerciseRecord expected = Saved()[0];
    (expected.*list.number)[1] = value;
    Change(list.name, 1, ListNumberText(value));
    ExerciseRecord saved = Saved()[0];
    saved.NextUpdate1 = expected.NextUpdate1;
    saved.NextUpdate2 = expected.NextUpdate2;
    EXPECT_EQ(saved, expected) << list.name;
    EXPECT_EQ(Rows(list.name)[1], ListNumberText(value)) << list.name;
    EXPECT_EQ(List(list.name).SelectedRow(), 1) << list.name;
    value += 1;
  }
}

TEST_F(SetValueEditing, AFrequencySetsItsOwnDateBehindToday) {
  Change("FreqList1", 1, "7");
  EXPECT_EQ(Saved()[0].NextUpdate1[1], kToday + 7);
  EXPECT_EQ(Saved()[0].NextUpdate2[1], kToday);
  Change("FreqList2", 0, "0.5");
  EXPECT_EQ(Saved()[0].NextUpdate2[0], kToday + 0.5);
  EXPECT_EQ(Saved()[0].NextUpdate1[0], kToday);
  EXPECT_EQ(Rows("NextUpdateList")[1], " 14, N/A");
}

TEST_F(SetValueEditing, AFrequencyOfZeroTurnsTheGrowthOff) {
  Change("FreqList1", 0, "7");
  Change("FreqList1", 0, "0");
  EXPECT_EQ(Saved()[0].SetFrequency1[0], 0);
  EXPECT_EQ(Rows("NextUpdateList")[0], "N/A, N/A");
}

TEST_F(SetValueEditing, AValueLeavesTheDatesAlone) {
  Exercise().NextUpdate1[0] = 1000;
  Change("SetList1", 0, "5");
  Change("SetListInc1", 0, "5");
  EXPECT_EQ(Saved()[0].NextUpdate1[0], 1000);
}

TEST_F(SetValueEditing, LeadingNumbersAreTakenAndNegativeOnesAreNot) {
  // What is not changed stays 42.
  const std::vector<std::pair<std::string, float>> values = {
      {"12abc", 12.0F},
      {"abc", 0.0F},
      {" 7 ", 7.0F},
      {"-5", 42.0F},
      {"+3", 3.0F},
      {"1e3", 1000.0F},
      {"nan", 0.0F},
      {"inf", 0.0F},
      {"-1e-9", 42.0F},
      {"0x10", 0.0F},
      {"1,5", 1.0F},
      {"", 42.0F},
      {"   ", 42.0F},
      {"1e39", 42.0F},
      {"9" + std::string(400, '9'), 42.0F},
      {"8" + std::string(100000, 'x'), 8.0F}};
  for (const ValueList& list : kValueLists) {
    for (const auto& [answer, value] : values) {
      (Exercise().*list.number)[0] = 42;
      SaveWorkout(state);
      Change(list.name, 0, answer);
      EXPECT_EQ((Saved()[0].*list.number)[0], value) << list.name << " " << answer.substr(0, 20);
      EXPECT_EQ((Exercise().*list.number)[0], value) << list.name << " " << answer.substr(0, 20);
    }
  }
}

TEST_F(SetValueEditing, ANegativeNumberIsPassedOverWithoutAMessage) {
  Change("SetListInc1", 0, "-5");
  EXPECT_THAT(dialogs.asked, SizeIs(1));
}

TEST_F(SetValueEditing, ATooLargeNumberIsRefusedWithAMessage) {
  Change("SetList1", 0, "1e39");
  ASSERT_THAT(dialogs.asked, SizeIs(2));
  EXPECT_EQ(dialogs.asked[1], "message|Repvolta|Nothing was changed.\rThe number is too large");
}

TEST_F(SetValueEditing, AFrequencyWhoseDaysCannotBeShownIsRefused) {
  Change("FreqList1", 0, "40000");
  ASSERT_THAT(dialogs.asked, SizeIs(2));
  EXPECT_EQ(dialogs.asked[1], "message|Repvolta|Nothing was changed.\rThe number is too large");
  EXPECT_EQ(Exercise().SetFrequency1[0], 0);
  EXPECT_EQ(Exercise().NextUpdate1[0], kToday);
  EXPECT_THAT(Rows("SetList1"), SizeIs(2));
}

TEST_F(SetValueEditing, AnOddDateKeepsNoOtherNumberFromBeingChanged) {
  Exercise().SetFrequency2[0] = 1;
  Exercise().NextUpdate2[0] = 1e300;
  Show();
  Change("SetList1", 0, "55");
  EXPECT_EQ(Saved()[0].SetValue1[0], 55);
  Change("FreqList1", 0, "3");
  EXPECT_EQ(Saved()[0].SetFrequency1[0], 3);
}

TEST_F(SetValueEditing, AValueThatCannotBeSavedIsToldAndShown) {
  BlockWorkouts();
  Change("SetList1", 0, "5");
  EXPECT_THAT(dialogs.asked.back(), HasSubstr("workouts/Monday.RPV could not be"));
  EXPECT_EQ(Rows("SetList1")[0], "5");
}

TEST_F(SetValueEditing, EnterDoesWhatADoubleClickDoes) {
  ClickRow("SetList2", 1);
  dialogs.answers = {"9"};
  QTest::keyClick(&List("SetList2"), Qt::Key_Return);
  EXPECT_EQ(Saved()[0].SetValue2[1], 9);
  dialogs.answers = {"8"};
  QTest::keyClick(&List("SetList2"), Qt::Key_Enter);
  EXPECT_EQ(Saved()[0].SetValue2[1], 8);
}

TEST_F(SetValueEditing, EnterOnARowThatIsNotSelectedAsksNothing) {
  List("SetList1").setFocus();
  QTest::keyClick(&List("SetList1"), Qt::Key_Return);
  EXPECT_THAT(dialogs.asked, SizeIs(0));
}

TEST_F(SetValueEditing, ADoubleClickBesideTheRowsAsksNothing) {
  const QPoint below =
      PlaceOf("SetList1", 1) +
      QPoint(0, List("SetList1").visualItemRect(List("SetList1").item(0)).height());
  ClickRow("SetList1", 0);
  QTest::mouseDClick(List("SetList1").viewport(), Qt::LeftButton, {}, below);
  EXPECT_THAT(dialogs.asked, SizeIs(0));
}

TEST_F(SetValueEditing, TheDatesAreShownInTheFormOfTheLocale) {
  Exercise().NextUpdate2[1] = kToday + 1;
  DoubleClickRow("NextUpdateList", 1);
  const auto date = [](int day) {
    return QLocale().toString(QDate(2007, 3, day), QLocale::ShortFormat).toStdString();
  };
  EXPECT_THAT(dialogs.asked, ElementsAre("message|Repvolta|Field 1 Next Update Date: " + date(25) +
                                         "\rField 2 Next Update Date: " + date(26)));
}

}  // namespace
}  // namespace repvolta
