#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSlider>
#include <QTabBar>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include "ui/WheelGuard.h"

namespace repvolta {
namespace {

/// A window with a slider, a combo box and tabs, and a button that has the focus.
class WheelGuardTest : public testing::Test {
 protected:
  WheelGuardTest() {
    auto* layout = new QHBoxLayout(&window_);
    for (QWidget* widget : std::initializer_list<QWidget*>{slider_, box_, tabs_, button_}) {
      layout->addWidget(widget);
    }
    box_->addItems({"a", "b", "c"});
    for (const char* tab : {"a", "b", "c"}) tabs_->addTab(tab);
    slider_->setValue(50);
    new WheelGuard(&window_);
    window_.show();
    window_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
    button_->setFocus();
  }

  static void Roll(QWidget* widget) {
    const QPointF place = widget->rect().center();
    QWheelEvent event(place, widget->mapToGlobal(place), {}, {0, -120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
  }

  QWidget window_;
  QSlider* slider_ = new QSlider;
  QComboBox* box_ = new QComboBox;
  QTabBar* tabs_ = new QTabBar;
  QPushButton* button_ = new QPushButton;
};

TEST_F(WheelGuardTest, LeavesControlsWithoutTheFocusAsTheyAre) {
  Roll(slider_);
  Roll(box_);
  Roll(tabs_);
  EXPECT_EQ(slider_->value(), 50);
  EXPECT_EQ(box_->currentIndex(), 0);
  EXPECT_EQ(tabs_->currentIndex(), 0);
}

TEST_F(WheelGuardTest, LetsTheWheelTurnWhatHasTheFocus) {
  box_->setFocus();
  Roll(box_);
  EXPECT_EQ(box_->currentIndex(), 1);
}

TEST_F(WheelGuardTest, TakesTheFocusByClickAndTabOnly) {
  EXPECT_EQ(box_->focusPolicy(), Qt::StrongFocus);
  EXPECT_EQ(slider_->focusPolicy(), Qt::StrongFocus);
}

}  // namespace
}  // namespace repvolta
