#include <QAccessible>
#include <QToolButton>

#include "support/FormFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;

/// The tab of the first of three exercises.
class ExerciseSteps : public FormFixture {
 protected:
  ExerciseSteps() {
    for (const char* name : {"Squat", "<b>", "Press"}) AddExercise(name);
    OpenTab(1);
    form->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
  }

  void Press(const char* control, Qt::Key key) {
    auto& widget = Get<QWidget>(control);
    widget.setFocus();
    QTest::keyClick(&widget, key, Qt::ControlModifier);
  }

  bool IsEnabled(const char* name) { return Get<QWidget>(name).isEnabled(); }
};

TEST_F(ExerciseSteps, ShowTheExerciseBeside) {
  Click("NextExerciseButton");
  EXPECT_EQ(Text("ExerciseNameLabel"), "<b>");
  EXPECT_EQ(List("ExerciseList").SelectedRow(), 1);
  EXPECT_EQ(List("ExerciseSummaryList").SelectedRow(), 1);
  Click("PreviousExerciseButton");
  EXPECT_EQ(Text("ExerciseNameLabel"), "Squat");
}

TEST_F(ExerciseSteps, HaveKeysThatWorkWhereverTheFocusIsOnTheTab) {
  Press("SetList1", Qt::Key_Down);
  Press("ExitButton", Qt::Key_Down);
  EXPECT_EQ(Text("ExerciseNameLabel"), "Press");
  Press("MusicList", Qt::Key_Up);
  EXPECT_EQ(Text("ExerciseNameLabel"), "<b>");
}

TEST_F(ExerciseSteps, HaveNoKeysOnTheOtherTabs) {
  OpenTab(0);
  Press("CreateNewWorkoutButton", Qt::Key_Down);
  OpenTab(2);
  Press("MusicPathButton", Qt::Key_Down);
  EXPECT_EQ(state.CurrentExercise, 0);
}

TEST_F(ExerciseSteps, EndAtTheFirstAndTheLastExercise) {
  EXPECT_FALSE(IsEnabled("PreviousExerciseButton"));
  EXPECT_TRUE(IsEnabled("NextExerciseButton"));
  Click("NextExerciseButton");
  EXPECT_TRUE(IsEnabled("PreviousExerciseButton"));
  Click("NextExerciseButton");
  EXPECT_FALSE(IsEnabled("NextExerciseButton"));
}

TEST_F(ExerciseSteps, SayWhereTheyLead) {
  Click("NextExerciseButton");
  Click("NextExerciseButton");
  EXPECT_EQ(Get<QWidget>("PreviousExerciseButton").toolTip(),
            "<qt>Show the exercise before this one: &lt;b&gt; (Ctrl+Up)</qt>");
  EXPECT_EQ(Get<QWidget>("NextExerciseButton").toolTip(),
            "<qt>There is no exercise after this one.</qt>");
  QAccessibleInterface* heard =
      QAccessible::queryAccessibleInterface(&Get<QWidget>("PreviousExerciseButton"));
  EXPECT_EQ(heard->text(QAccessible::Name), "Previous exercise");
  EXPECT_EQ(heard->text(QAccessible::Description),
            "Show the exercise before this one: <b> (Ctrl+Up)");
}

TEST_F(ExerciseSteps, LeaveTheFocusOnAButtonThatWorks) {
  Get<QWidget>("NextExerciseButton").setFocus();
  QTest::keyClick(form->focusWidget(), Qt::Key_Space);
  EXPECT_EQ(form->focusWidget()->objectName(), "NextExerciseButton");
  QTest::keyClick(form->focusWidget(), Qt::Key_Space);
  EXPECT_EQ(form->focusWidget()->objectName(), "PreviousExerciseButton");
}

TEST_F(ExerciseSteps, FollowTheExercisesThatComeAndGo) {
  ClickRow("ExerciseList", 0);
  OpenTab(0);
  dialogs.answers = {"OK", "OK"};
  for (int i = 0; i < 2; ++i) {
    ClickRow("ExerciseList", 1);
    Click("RemoveExerciseButton");
  }
  EXPECT_FALSE(IsEnabled("NextExerciseButton"));
  EXPECT_FALSE(IsEnabled("PreviousExerciseButton"));
}

TEST_F(ExerciseSteps, TakeTheWorkoutAsAnotherProgramHasLeftIt) {
  ExerciseSlots changed = state.Workout;
  changed[1].SetType = kLevelAndTime;
  PutFile("workouts/Monday.RPV", EncodeWorkout(changed));
  Click("NextExerciseButton");
  EXPECT_EQ(Text("SetListLabel1"), "Level");
  EXPECT_THAT(dialogs.asked, testing::IsEmpty());
}

}  // namespace
}  // namespace repvolta
