#include <QAction>
#include <QChart>
#include <QCheckBox>
#include <QLegendMarker>
#include <QRadioButton>
#include <QScatterSeries>
#include <QTableView>

#include "base/ProgramFiles.h"
#include "ui/GrowthAheadForm.h"
#include "ui/GrowthPicture.h"

#include "support/Accessibility.h"
#include "support/FormFixture.h"
#include "support/FullDisk.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

/// The window "Growth Ahead" of an exercise with two sets; the weight of the first grows by 2.5
/// every 7 days, which are counted from today, Sunday 25 March 2007.
class GrowthAheadWindow : public FormFixture {
 protected:
  GrowthAheadWindow() {
    ExerciseRecord& exercise = AddExercise("Squat");
    exercise.NumberOfSets = 2;
    exercise.SetValue1[0] = 50;
    exercise.SetIncrement1[0] = 2.5F;
    exercise.SetFrequency1[0] = 7;
    OpenTab(1);
  }

  QAction& Action() { return Get<QAction>("GrowthAheadAction"); }

  void Open() { Action().trigger(); }

  QTableView& Table() { return Get<QTableView>("GrowthTable"); }

  std::string Cell(int row, int column, int role = Qt::DisplayRole) {
    const QAbstractItemModel& model = *Table().model();
    return model.data(model.index(row, column), role).toString().toStdString();
  }

  std::vector<std::string> Row(int row) {
    std::vector<std::string> cells;
    for (int i = 0; i < Table().model()->columnCount(); ++i) cells.push_back(Cell(row, i));
    return cells;
  }

  int Rows() { return Table().model()->rowCount(); }

  void ChooseMondays() { Get<QRadioButton>("WeekdaysButton").click(); }

  GrowthPicture& Picture() { return Get<GrowthPicture>("GrowthPicture"); }

  /// The series with marks, one for each value.
  std::vector<QScatterSeries*> Marks() {
    std::vector<QScatterSeries*> marks;
    for (QAbstractSeries* series : Picture().chart()->series()) {
      if (auto* scatter = qobject_cast<QScatterSeries*>(series)) marks.push_back(scatter);
    }
    return marks;
  }
};

TEST_F(GrowthAheadWindow, IsMadeWhenItIsFirstOpened) {
  EXPECT_EQ(form->findChild<GrowthAheadForm*>(), nullptr);
  Open();
  EXPECT_TRUE(Get<GrowthAheadForm>("GrowthAheadForm").isVisible());
  EXPECT_FALSE(Get<GrowthAheadForm>("GrowthAheadForm").isModal());
}

TEST_F(GrowthAheadWindow, OpensWithItsKey) {
  form->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
  QTest::keyClick(&List("SetList1"), Qt::Key_G, Qt::ControlModifier);
  EXPECT_NE(form->findChild<GrowthAheadForm*>(), nullptr);
}

TEST_F(GrowthAheadWindow, ShowsOnWhichDaysTheWeightGrowsAndToWhat) {
  Open();
  EXPECT_EQ(Text("GrowthHeading"), "Squat");
  EXPECT_THAT(Row(0), ElementsAre("Mon 2 Apr 2007", "1", "Weight", "50", "52.5"));
  EXPECT_THAT(Row(1), ElementsAre("Tue 10 Apr 2007", "1", "Weight", "52.5", "55"));
  EXPECT_EQ(Rows(), 10);
}

TEST_F(GrowthAheadWindow, SaysWhichFrequencyIsMeant) {
  Open();
  ChooseMondays();
  EXPECT_EQ(Text("AdviceLabel"),
            "Weight: \"every 7 days\" with updates on Mondays means every other Monday; 6 would "
            "mean every Monday.");
}

TEST_F(GrowthAheadWindow, LooksAsFarAheadAsIsChosen) {
  Open();
  Get<QComboBox>("WeeksBox").setCurrentIndex(0);
  EXPECT_EQ(Rows(), 3);
  Get<QComboBox>("WeeksBox").setCurrentIndex(2);
  EXPECT_EQ(Rows(), 22);
}

TEST_F(GrowthAheadWindow, FollowsEachEdit) {
  Open();
  dialogs.answers = {"10"};
  DoubleClickRow("SetListInc1", 0);
  EXPECT_EQ(Cell(0, 4), "60");
  EXPECT_EQ(Marks().at(0)->at(1).y(), 60);
}

TEST_F(GrowthAheadWindow, FollowsTheTabToAnotherExercise) {
  AddExercise("Row");
  Open();
  OpenTab(0);
  ClickRow("ExerciseList", 1);
  OpenTab(1);
  EXPECT_EQ(Text("GrowthHeading"), "Row");
  EXPECT_EQ(Rows(), 0);
}

TEST_F(GrowthAheadWindow, SaysThatNothingGrows) {
  state.Workout[0].SetFrequency1[0] = 0;
  Open();
  EXPECT_TRUE(Get<QLabel>("NothingLabel").isVisible());
  EXPECT_FALSE(Table().isVisible());
  EXPECT_FALSE(Picture().isVisible());
  state.Workout[0].SetFrequency1[0] = 7;
  form->EnableWorkoutControls();
  EXPECT_FALSE(Get<QLabel>("NothingLabel").isVisible());
  EXPECT_TRUE(Table().isVisible());
}

TEST_F(GrowthAheadWindow, KeepsTheUpdateDaysForTheNextTime) {
  Open();
  ChooseMondays();
  Get<QCheckBox>("ThursdayBox").click();
  EXPECT_EQ(GetTextFile(kOptionsFile), "updates-on-monday = yes\nupdates-on-thursday = yes\n");
  OpenForm();
  form->EnableWorkoutControls();
  Open();
  EXPECT_TRUE(Get<QRadioButton>("WeekdaysButton").isChecked());
  EXPECT_TRUE(Get<QCheckBox>("MondayBox").isChecked());
  EXPECT_FALSE(Get<QCheckBox>("TuesdayBox").isChecked());
  EXPECT_TRUE(Get<QCheckBox>("ThursdayBox").isChecked());
}

TEST_F(GrowthAheadWindow, GoesBackToDailyUpdatesWithoutAnyDay) {
  Open();
  ChooseMondays();
  Get<QCheckBox>("MondayBox").click();
  EXPECT_TRUE(Get<QRadioButton>("DailyButton").isChecked());
  EXPECT_FALSE(Get<QCheckBox>("MondayBox").isEnabled());
  ChooseMondays();
  EXPECT_TRUE(Get<QCheckBox>("MondayBox").isChecked());
}

TEST_F(GrowthAheadWindow, RemembersTheDaysWhileUpdatesAreDaily) {
  Open();
  ChooseMondays();
  Get<QCheckBox>("ThursdayBox").click();
  Get<QRadioButton>("DailyButton").click();
  EXPECT_EQ(Cell(0, 0), "Mon 2 Apr 2007");
  EXPECT_EQ(Cell(1, 0), "Tue 10 Apr 2007");
  Get<QRadioButton>("WeekdaysButton").click();
  EXPECT_EQ(Cell(1, 0), "Thu 12 Apr 2007");
}

TEST_F(GrowthAheadWindow, TellsWhenTheDaysCannotBeKept) {
  Open();
  const FullDisk disk(10);
  ChooseMondays();
  ASSERT_THAT(dialogs.asked, SizeIs(1));
  EXPECT_THAT(dialogs.asked[0], HasSubstr("options.conf could not be written"));
  EXPECT_TRUE(Get<QRadioButton>("WeekdaysButton").isChecked());
}

TEST_F(GrowthAheadWindow, ChangesTheLineOfTheTabWithTheDays) {
  Open();
  ClickRow("SetList1", 0);
  ChooseMondays();
  EXPECT_THAT(Text("GrowthLabel"), HasSubstr("updates on Mondays"));
}

TEST_F(GrowthAheadWindow, ChangesNothingOfTheExercise) {
  const ExerciseRecord before = state.Workout[0];
  Open();
  ChooseMondays();
  EXPECT_EQ(state.Workout[0], before);
}

TEST_F(GrowthAheadWindow, IsThereOnlyForAnExercise) {
  Open();
  state.NumberOfExercises = 0;
  form->EnableWorkoutControls();
  EXPECT_FALSE(Action().isEnabled());
  EXPECT_FALSE(Get<GrowthAheadForm>("GrowthAheadForm").isVisible());
  state.NumberOfExercises = 1;
  state.WorkoutFileName = "";
  form->EnableWorkoutControls();
  EXPECT_FALSE(Action().isEnabled());
}

TEST_F(GrowthAheadWindow, CellsAreSaidWithTheirColumn) {
  Open();
  EXPECT_EQ(Cell(0, 0, Qt::AccessibleTextRole), "Day: Mon 2 Apr 2007");
  EXPECT_EQ(Cell(0, 4, Qt::AccessibleTextRole), "To: 52.5");
}

TEST_F(GrowthAheadWindow, SaysItsPictureInWords) {
  Open();
  EXPECT_EQ(Picture().accessibleDescription().toStdString(),
            "Set 1: Weight from 50 to 75 in 10 steps, the last on Wed 13 Jun 2007.");
}

TEST_F(GrowthAheadWindow, NamesEachControlOnce) {
  Open();
  ChooseMondays();
  for (const auto& [name, times] : HeardNames(Get<GrowthAheadForm>("GrowthAheadForm"))) {
    EXPECT_FALSE(name.empty());
    EXPECT_EQ(times, 1) << name;
  }
  for (const auto& [letter, times] : Mnemonics(Get<GrowthAheadForm>("GrowthAheadForm"))) {
    EXPECT_EQ(times, 1) << letter;
  }
}

TEST_F(GrowthAheadWindow, DrawsALineAndMarksForEachValue) {
  state.Workout[0].SetIncrement2[0] = state.Workout[0].SetIncrement1[1] = 1;
  state.Workout[0].SetFrequency2[0] = state.Workout[0].SetFrequency1[1] = 7;
  Open();
  const auto marks = Marks();
  ASSERT_THAT(marks, SizeIs(3));
  EXPECT_EQ(marks[0]->name(), "Set 1: Weight");
  EXPECT_EQ(marks[1]->name(), "Set 2: Weight");
  EXPECT_EQ(marks[2]->name(), "Set 1: Reps");
  EXPECT_NE(marks[0]->markerShape(), marks[1]->markerShape());
  EXPECT_NE(marks[0]->color(), marks[1]->color());
  EXPECT_NE(marks[0]->color(), marks[2]->color());
  EXPECT_EQ(Picture().chart()->axes(Qt::Vertical).size(), 2);
}

TEST_F(GrowthAheadWindow, NamesEachValueOnceInTheLegend) {
  Open();
  int shown = 0;
  for (const QLegendMarker* marker : Picture().chart()->legend()->markers()) {
    shown += marker->isVisible() ? 1 : 0;
  }
  EXPECT_EQ(shown, 1);
}

TEST_F(GrowthAheadWindow, DrawsStepsFromDayToDay) {
  Open();
  const auto* line = qobject_cast<QXYSeries*>(Picture().chart()->series().at(0));
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(line->at(0), QPointF(kToday, 50));
  EXPECT_EQ(line->at(1), QPointF(kToday + 8, 50));
  EXPECT_EQ(line->at(2), QPointF(kToday + 8, 52.5));
}

TEST_F(GrowthAheadWindow, DrawsInOtherColoursOnADarkGround) {
  Open();
  const QColor before = Marks().at(0)->color();
  QPalette dark(QColor(53, 53, 53));
  dark.setColor(QPalette::Base, QColor(35, 35, 35));
  Picture().setPalette(dark);
  EXPECT_NE(Marks().at(0)->color(), before);
  EXPECT_EQ(Picture().chart()->backgroundBrush().color(), QColor(35, 35, 35));
}

}  // namespace
}  // namespace repvolta
