#include <QDate>
#include <QLocale>
#include <stdexcept>
#include <utility>

#include "app/WorkoutFiles.h"
#include "base/FileError.h"
#include "base/Numbers.h"
#include "editing/SetValueEditing.h"

#include "support/EditorFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::ThrowsMessage;

struct ValueList {
  const char* name;
  void (*doubleClick)(Editor& editor, int row);
  SetColumn column;
  SetSingles ExerciseRecord::* number;
};

constexpr ValueList kValueLists[] = {
    {"SetList1", SetList1_DblClick, kSetList1, &ExerciseRecord::SetValue1},
    {"SetList2", SetList2_DblClick, kSetList2, &ExerciseRecord::SetValue2},
    {"SetListInc1", SetListInc1_DblClick, kSetListInc1, &ExerciseRecord::SetIncrement1},
    {"SetListInc2", SetListInc2_DblClick, kSetListInc2, &ExerciseRecord::SetIncrement2},
    {"FreqList1", FreqList1_DblClick, kFreqList1, &ExerciseRecord::SetFrequency1},
    {"FreqList2", FreqList2_DblClick, kFreqList2, &ExerciseRecord::SetFrequency2},
};

/// The exercise tab with two sets.
class SetValueEditing : public EditorFixture {
 protected:
  SetValueEditing() {
    AddNewExercise("Squat").NumberOfSets = 2;
    Show();
  }

  ExerciseRecord& Exercise() { return state.Workout[0]; }

  void Change(void (*doubleClick)(Editor&, int), int row, const std::string& answer) {
    dialogs.asked.clear();
    dialogs.answers = {answer};
    doubleClick(editor, row);
  }
};

TEST_F(SetValueEditing, ADoubleClickAsksForTheNewValue) {
  for (const ValueList& list : kValueLists) {
    Change(list.doubleClick, 0, "");
    EXPECT_THAT(dialogs.asked, ElementsAre("ask|Change Exercise Value|Enter new Value:"))
        << list.name;
  }
}

TEST_F(SetValueEditing, EachListChangesItsOwnNumberAndSavesIt) {
  screen.SelectSet(1);
  float value = 3.5;
  for (const ValueList& list : kValueLists) {
    ExerciseRecord expected = Saved()[0];
    (expected.*list.number)[1] = value;
    Change(list.doubleClick, 1, ListNumberText(value));
    ExerciseRecord saved = Saved()[0];
    saved.NextUpdate1 = expected.NextUpdate1;
    saved.NextUpdate2 = expected.NextUpdate2;
    EXPECT_EQ(saved, expected) << list.name;
    EXPECT_EQ(screen.sets[list.column][1], ListNumberText(value)) << list.name;
    EXPECT_EQ(screen.selectedSet, 1) << list.name;
    value += 1;
  }
}

TEST_F(SetValueEditing, AFrequencySetsItsOwnDateBehindToday) {
  Change(FreqList1_DblClick, 1, "7");
  EXPECT_EQ(Saved()[0].NextUpdate1[1], kToday + 7);
  EXPECT_EQ(Saved()[0].NextUpdate2[1], kToday);
  Change(FreqList2_DblClick, 0, "0.5");
  EXPECT_EQ(Saved()[0].NextUpdate2[0], kToday + 0.5);
  EXPECT_EQ(Saved()[0].NextUpdate1[0], kToday);
  EXPECT_EQ(screen.sets[kNextUpdateList][1], " 14, N/A");
}

TEST_F(SetValueEditing, AFrequencyOfZeroTurnsTheGrowthOff) {
  Change(FreqList1_DblClick, 0, "7");
  Change(FreqList1_DblClick, 0, "0");
  EXPECT_EQ(Saved()[0].SetFrequency1[0], 0);
  EXPECT_EQ(screen.sets[kNextUpdateList][0], "N/A, N/A");
}

TEST_F(SetValueEditing, AValueLeavesTheDatesAlone) {
  Exercise().NextUpdate1[0] = 1000;
  Change(SetList1_DblClick, 0, "5");
  Change(SetListInc1_DblClick, 0, "5");
  EXPECT_EQ(Saved()[0].NextUpdate1[0], 1000);
}

TEST_F(SetValueEditing, LeadingNumbersAreTakenAndNegativeOnesAreNot) {
  // An unchanged value stays 42.
  const std::vector<std::pair<std::string, float>> values = {
      {"12abc", 12.0F}, {"abc", 0.0F},
      {" 7 ", 7.0F},    {"-5", 42.0F},
      {"+3", 3.0F},     {"1e3", 1000.0F},
      {"nan", 0.0F},    {"inf", 0.0F},
      {"-1e-9", 42.0F}, {"0x10", 0.0F},
      {"1,5", 1.0F},    {"", 42.0F},
      {"   ", 42.0F},   {"8" + std::string(100000, 'x'), 8.0F}};
  for (const ValueList& list : kValueLists) {
    for (const auto& [answer, value] : values) {
      (Exercise().*list.number)[0] = 42;
      SaveWorkout(state);
      Change(list.doubleClick, 0, answer);
      EXPECT_EQ((Saved()[0].*list.number)[0], value) << list.name << " " << answer.substr(0, 20);
      EXPECT_EQ((Exercise().*list.number)[0], value) << list.name << " " << answer.substr(0, 20);
    }
  }
}

TEST_F(SetValueEditing, ANegativeNumberIsPassedOverWithoutAMessage) {
  Change(SetListInc1_DblClick, 0, "-5");
  EXPECT_THAT(dialogs.asked, SizeIs(1));
}

TEST_F(SetValueEditing, ATooLargeNumberIsRefusedWithAMessage) {
  for (const ValueList& list : kValueLists) {
    (Exercise().*list.number)[0] = 42;
    Show();
    for (const std::string& answer : {std::string("1e39"), std::string(400, '9')}) {
      EXPECT_THAT([&] { Change(list.doubleClick, 0, answer); },
                  ThrowsMessage<std::overflow_error>("The number is too large"))
          << list.name;
      EXPECT_EQ((Saved()[0].*list.number)[0], 42) << list.name;
      EXPECT_EQ((Exercise().*list.number)[0], 42) << list.name;
    }
  }
}

TEST_F(SetValueEditing, AFrequencyWhoseDaysCannotBeShownIsRefused) {
  EXPECT_THAT([this] { Change(FreqList1_DblClick, 0, "40000"); },
              ThrowsMessage<std::overflow_error>("The number is too large"));
  EXPECT_EQ(Exercise().SetFrequency1[0], 0);
  EXPECT_EQ(Exercise().NextUpdate1[0], kToday);
  EXPECT_THAT(screen.sets[kSetList1], SizeIs(2));
}

TEST_F(SetValueEditing, AnOddDateKeepsNoOtherNumberFromBeingChanged) {
  Exercise().SetFrequency2[0] = 1;
  Exercise().NextUpdate2[0] = 1e300;
  Show();
  Change(SetList1_DblClick, 0, "55");
  EXPECT_EQ(Saved()[0].SetValue1[0], 55);
  Change(FreqList1_DblClick, 0, "3");
  EXPECT_EQ(Saved()[0].SetFrequency1[0], 3);
}

TEST_F(SetValueEditing, AValueThatCannotBeSavedIsToldAndShown) {
  BlockWorkouts();
  EXPECT_THAT([this] { Change(SetList1_DblClick, 0, "5"); },
              ThrowsMessage<UnsavedChange>(HasSubstr("workouts/Monday.RPV could not be")));
  EXPECT_EQ(screen.sets[kSetList1][0], "5");
}

TEST_F(SetValueEditing, NothingIsAskedWithoutASelectedRow) {
  for (const ValueList& list : kValueLists) list.doubleClick(editor, -1);
  NextUpdateList_DblClick(editor, -1);
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(SetValueEditing, TheDatesAreShownInTheFormOfTheLocale) {
  Exercise().NextUpdate2[1] = kToday + 1;
  NextUpdateList_DblClick(editor, 1);
  const auto date = [](int day) {
    return QLocale().toString(QDate(2007, 3, day), QLocale::ShortFormat).toStdString();
  };
  EXPECT_THAT(dialogs.asked, ElementsAre("message|Repvolta|Field 1 Next Update Date: " + date(25) +
                                         "\rField 2 Next Update Date: " + date(26)));
}

}  // namespace
}  // namespace repvolta
