#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QMenu>
#include <QPointingDevice>
#include <QPushButton>
#include <QScrollBar>
#include <QScroller>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>

#include "ui/ClearIndicators.h"
#include "ui/RowList.h"
#include "ui/TouchScreen.h"

namespace repvolta {
namespace {

/// A list of thirty rows in a window that is on the screen.
class TouchedList : public testing::Test {
 protected:
  explicit TouchedList(Pointing pointing = Pointing::kFinger) : style_(pointing) {
    list_.setStyle(&style_);
    for (int i = 0; i < 30; ++i) list_.addItem(QString::number(i));
    list_.resize(200, 300);
    list_.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&list_));
  }

  QPoint Place(int row) { return list_.visualItemRect(list_.item(row)).center(); }

  /// Draws a finger over the list, in small steps as it moves.
  void Draw(const QPoint& from, const QPoint& to) {
    QTest::touchEvent(list_.viewport(), Screen()).press(0, from);
    for (int step = 1; step <= kSteps; ++step) {
      QTest::touchEvent(list_.viewport(), Screen()).move(0, from + (to - from) * step / kSteps);
    }
    QTest::touchEvent(list_.viewport(), Screen()).release(0, to);
  }

  static QPointingDevice* Screen() {
    static const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    return screen.get();
  }

  static constexpr int kSteps = 20;
  ClearIndicators style_;
  RowList list_;
};

TEST_F(TouchedList, HasRowsThatAFingerHits) {
  EXPECT_GE(list_.visualItemRect(list_.item(0)).height(), kFingerHeight);
}

TEST_F(TouchedList, AsksForTheRoomOfItsHighRows) {
  list_.SetVisibleRows(4);
  EXPECT_GE(list_.sizeHint().height(), 4 * kFingerHeight);
}

TEST_F(TouchedList, ScrollsUnderAFinger) {
  Draw({50, 250}, {50, 50});
  EXPECT_GT(list_.verticalScrollBar()->value(), 100);
  EXPECT_EQ(list_.SelectedRow(), -1);
}

TEST_F(TouchedList, SelectsTheRowThatAFingerTaps) {
  Draw(Place(3), Place(3));
  EXPECT_EQ(list_.SelectedRow(), 3);
}

TEST_F(TouchedList, ChoosesTheRowThatAFingerTapsTwice) {
  int chosen = -1;
  QObject::connect(&list_, &RowList::RowChosen, [&](int row) { chosen = row; });
  // The test before has tapped, too, and Qt 6.8 counts the taps of different windows together.
  QTest::qWait(QApplication::doubleClickInterval());
  Draw(Place(6), Place(6));
  Draw(Place(6), Place(6));
  EXPECT_EQ(chosen, 6);
}

TEST_F(TouchedList, DoesNotScrollUnderAMouse) {
  QTest::mousePress(list_.viewport(), Qt::LeftButton, {}, Place(5));
  QTest::mouseMove(list_.viewport(), Place(2));
  QTest::mouseMove(list_.viewport(), Place(1));
  QTest::mouseRelease(list_.viewport(), Qt::LeftButton, {}, Place(1));
  EXPECT_EQ(list_.verticalScrollBar()->value(), 0);
}

TEST_F(TouchedList, EndsWithoutABounce) {
  const QScrollerProperties properties =
      QScroller::scroller(list_.viewport())->scrollerProperties();
  for (const auto edge : {QScrollerProperties::HorizontalOvershootPolicy,
                          QScrollerProperties::VerticalOvershootPolicy}) {
    EXPECT_EQ(properties.scrollMetric(edge).value<QScrollerProperties::OvershootPolicy>(),
              QScrollerProperties::OvershootAlwaysOff);
  }
}

class ListWithoutTouch : public TouchedList {
 protected:
  ListWithoutTouch() : TouchedList(Pointing::kMouse) {}
};

TEST_F(ListWithoutTouch, IsAsBefore) {
  RowList usual;
  usual.addItem("0");
  EXPECT_EQ(list_.visualItemRect(list_.item(0)).height(),
            usual.visualItemRect(usual.item(0)).height());
  EXPECT_FALSE(QScroller::hasScroller(list_.viewport()));
}

template <class Control>
int HeightOf(Pointing pointing) {
  ClearIndicators style(pointing);
  Control control;
  control.setStyle(&style);
  return control.sizeHint().height();
}

TEST(TouchScreen, GrowsControlsForFingers) {
  EXPECT_GE(HeightOf<QPushButton>(Pointing::kFinger), kFingerHeight);
  EXPECT_GE(HeightOf<QCheckBox>(Pointing::kFinger), kFingerHeight);
  EXPECT_GE(HeightOf<QComboBox>(Pointing::kFinger), kFingerHeight);
  EXPECT_LT(HeightOf<QPushButton>(Pointing::kMouse), kFingerHeight);
}

TEST(TouchScreen, GrowsTheLinesOfAMenuAndNotWhatSeparatesThem) {
  ClearIndicators style(Pointing::kFinger);
  QMenu menu;
  menu.setStyle(&style);
  QAction* line = menu.addAction("Undo");
  QAction* separator = menu.addSeparator();
  menu.addAction("Redo");
  EXPECT_GE(menu.actionGeometry(line).height(), kFingerHeight);
  EXPECT_LT(menu.actionGeometry(separator).height(), kFingerHeight / 2);
}

}  // namespace
}  // namespace repvolta
