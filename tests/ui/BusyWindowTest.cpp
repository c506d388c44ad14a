#include <QTimer>

#include "support/FormFixture.h"

namespace repvolta {
namespace {

/// The window's keys during a command that handles events.
class BusyWindow : public FormFixture {
 protected:
  BusyWindow() {
    AddExercise("Squat");
    form->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
  }

  int Tab() { return Get<QTabWidget>("SSTab1").currentIndex(); }

  void PressTabKeys() {
    ++pressed;
    QTest::keyClick(form.get(), Qt::Key_PageDown, Qt::ControlModifier);
    tabs.push_back(Tab());
    QTest::keyClick(form.get(), Qt::Key_PageUp, Qt::ControlModifier);
    tabs.push_back(Tab());
  }

  int pressed = 0;
  std::vector<int> tabs;  // after each key
};

TEST_F(BusyWindow, KeepsItsTabDuringAnUpdate) {
  progress.whenLine = [this] { PressTabKeys(); };
  Click("UpdateSelectedWorkoutButton");
  EXPECT_GT(pressed, 1);
  EXPECT_THAT(tabs, testing::Each(0));
}

TEST_F(BusyWindow, KeepsItsTabDuringTheListingOfMusic) {
  OpenTab(2);
  QTimer::singleShot(0, form.get(), [this] { PressTabKeys(); });
  Get<QAbstractButton>("CompileMusicList").click();
  EXPECT_EQ(pressed, 1);
  EXPECT_THAT(tabs, testing::Each(2));
}

TEST_F(BusyWindow, TurnsItsTabAgainAfterwards) {
  Click("UpdateSelectedWorkoutButton");
  QTest::keyClick(form.get(), Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(Tab(), 1);
  EXPECT_EQ(Text("ExerciseNameLabel"), "Squat");
}

}  // namespace
}  // namespace repvolta
