#include <QScrollArea>
#include <QScrollBar>

#include "app/UpdateDays.h"

#include "support/FormFixture.h"

namespace repvolta {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

/// Two sets; the first grows by 2.5 every 6 days, which are counted from today, Sunday.
class GrowthOfTheSelectedSet : public FormFixture {
 protected:
  GrowthOfTheSelectedSet() {
    ExerciseRecord& exercise = AddExercise("Squat");
    exercise.NumberOfSets = 2;
    exercise.SetValue1[0] = 50;
    exercise.SetIncrement1[0] = 2.5F;
    exercise.SetFrequency1[0] = 6;
    OpenTab(1);
  }

  const std::string kGrowing =
      "Weight next grows on Sun 1 Apr 2007 by 2.5 to 52.5, then every 7th day.";
};

TEST_F(GrowthOfTheSelectedSet, IsAskedForBeforeASetIsSelected) {
  EXPECT_EQ(Text("GrowthLabel"), "Select a set to read here when it grows.");
}

TEST_F(GrowthOfTheSelectedSet, FollowsTheSelection) {
  ClickRow("SetList2", 0);
  EXPECT_EQ(Text("GrowthLabel"), kGrowing);
  ClickRow("SetList2", 1);
  EXPECT_EQ(Text("GrowthLabel"), "");
  QTest::keyClick(&List("SetList2"), Qt::Key_Up);
  EXPECT_EQ(Text("GrowthLabel"), kGrowing);
}

TEST_F(GrowthOfTheSelectedSet, FollowsAnEdit) {
  dialogs.answers = {"5"};
  DoubleClickRow("SetListInc1", 0);
  EXPECT_THAT(Text("GrowthLabel"), HasSubstr("by 5 to 55"));
  dialogs.answers = {"0"};
  DoubleClickRow("FreqList1", 0);
  EXPECT_EQ(Text("GrowthLabel"), "");
}

TEST_F(GrowthOfTheSelectedSet, FollowsAResetOfTheDates) {
  dialogs.answers = {"7"};
  DoubleClickRow("FreqList1", 0);
  EXPECT_THAT(Text("GrowthLabel"), StartsWith("Weight first grows on Mon 9 Apr 2007"));
  Click("ManualDateResetButton");
  EXPECT_THAT(Text("GrowthLabel"), StartsWith("Weight next grows on Mon 2 Apr 2007"));
}

TEST_F(GrowthOfTheSelectedSet, NamesTheUpdateDaysThatAreKept) {
  PutUpdateDays(state.Options, UpdateDays(0b0000001));
  ClickRow("SetList1", 0);
  EXPECT_THAT(Text("GrowthLabel"),
              HasSubstr("updates on Mondays make it Mon 2 Apr 2007, then every Monday"));
}

TEST_F(GrowthOfTheSelectedSet, IsSaidWithTheListsThatItExplains) {
  ClickRow("SetList1", 0);
  for (const char* list : {"FreqList1", "FreqList2", "NextUpdateList"}) {
    EXPECT_EQ(List(list).accessibleDescription().toStdString(), kGrowing) << list;
  }
}

TEST_F(GrowthOfTheSelectedSet, WrapsInsteadOfMakingTheTabWider) {
  const int before = Get<QWidget>("ExerciseTab").minimumSizeHint().width();
  state.Workout[0].SetType = kUserDefined;
  state.Workout[0].UserField1Name = "Extraordinary dumbbells";
  state.Workout[0].SetFrequency2[0] = 1;
  PutUpdateDays(state.Options, UpdateDays(0b0101101));
  form->UpdateExerciseScreen();
  ClickRow("SetList1", 0);
  auto& label = Get<QLabel>("GrowthLabel");
  EXPECT_LE(label.minimumSizeHint().width(), before);
  QTest::qWait(1);
  EXPECT_GE(label.height(), label.heightForWidth(label.width()));
}

TEST_F(GrowthOfTheSelectedSet, FitsWithTheWholeTab) {
  state.Workout[0].SetIncrement2[0] = 1;
  state.Workout[0].SetFrequency2[0] = 20;
  PutUpdateDays(state.Options, UpdateDays(0b0000001));
  form->resize(form->sizeHint());
  ClickRow("SetList1", 0);
  QApplication::processEvents();
  EXPECT_GT(Text("GrowthLabel").size(), 200U);
  EXPECT_FALSE(Get<QScrollArea>("ExerciseScrollArea").verticalScrollBar()->isVisible());
}

TEST_F(GrowthOfTheSelectedSet, KeepsItsRoomWhenThereIsNothingToSay) {
  PutUpdateDays(state.Options, UpdateDays(0b0000001));
  ClickRow("SetList1", 0);
  QApplication::processEvents();
  const int with = Get<QWidget>("AddNewSetButton").mapTo(form.get(), QPoint()).y();
  ClickRow("SetList1", 1);
  QApplication::processEvents();
  EXPECT_EQ(Get<QWidget>("AddNewSetButton").mapTo(form.get(), QPoint()).y(), with);
}

TEST_F(GrowthOfTheSelectedSet, IsGoneWithTheLastExercise) {
  ClickRow("SetList1", 0);
  OpenTab(0);
  ClickRow("ExerciseList", 0);
  dialogs.answers = {"OK"};
  Click("RemoveExerciseButton");
  OpenTab(1);
  EXPECT_FALSE(Get<QLabel>("GrowthLabel").isVisible());
}

TEST_F(GrowthOfTheSelectedSet, IsNotThatOfAnExerciseThatWasShownBefore) {
  ClickRow("SetList1", 0);
  state.Workout[0].NumberOfSets = 99;
  EXPECT_THROW(form->UpdateExerciseScreen(), std::out_of_range);
  EXPECT_EQ(Text("GrowthLabel"), "");
  EXPECT_EQ(List("FreqList1").accessibleDescription(), "");
}

struct LargeFont {
  LargeFont() {
    QFont font = before;
    font.setPointSize(14);
    QApplication::setFont(font);
  }
  ~LargeFont() { QApplication::setFont(before); }
  LargeFont(const LargeFont&) = delete;
  LargeFont& operator=(const LargeFont&) = delete;

  const QFont before = QApplication::font();
};

class WindowInALargeFont : public LargeFont, public FormFixture {};

TEST_F(WindowInALargeFont, HasRoomFromTheStartForAllThatTheExerciseTabSays) {
  const QSize size = form->sizeHint();
  ExerciseRecord& squat = AddExercise("Squat");
  squat.NumberOfSets = 1;
  squat.SetFrequency1[0] = 7;
  squat.TargetExerciseTime = 60;
  squat.TotalMusicTime = 90;
  squat.NumberOfMusicFiles = 1;
  squat.MusicFile[0] = "/gone.mp3";
  form->resize(size);
  OpenTab(1);
  QApplication::processEvents();
  EXPECT_FALSE(Get<QScrollArea>("ExerciseScrollArea").verticalScrollBar()->isVisible());
}

}  // namespace
}  // namespace repvolta
