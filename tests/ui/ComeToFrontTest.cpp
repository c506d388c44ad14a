#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QTest>
#include <QWindow>
#include <gtest/gtest.h>

#include "ui/ComeToFront.h"

namespace repvolta {
namespace {

constexpr const char* kLeave = "XDG_ACTIVATION_TOKEN";

TEST(ComeToFront, GivesTheWindowTheKeyboard) {
  QWidget window;
  QWidget other;
  window.show();
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));

  ComeToFront(window, "token 7");

  EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

TEST(ComeToFront, GivesItToTheBoxThatBlocksTheWindow) {
  QWidget window;
  QDialog box(&window);
  QWidget other;
  window.show();
  box.setModal(true);
  box.show();
  other.show();
  other.activateWindow();

  ComeToFront(window, {});

  EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
}

class BoxOnScreen : public testing::Test {
 protected:
  BoxOnScreen() {
    HandKeyboardToBoxes(box_);
    window_.show();
    Open(box_);
  }

  static void Open(QDialog& box) {
    box.setModal(true);
    box.show();
    Activate(box);
  }

  /// As a desktop does that knows nothing of boxes.
  static void Activate(QWidget& window) {
    window.activateWindow();
    constexpr int kEnoughToHandOn = 5;
    for (int i = 0; i < kEnoughToHandOn; ++i) QCoreApplication::processEvents();
  }

  QWidget window_;
  QDialog box_{&window_};
};

TEST_F(BoxOnScreen, GetsTheKeyboardOfTheWindowThatItBlocks) {
  Activate(window_);
  EXPECT_EQ(QGuiApplication::focusWindow(), box_.windowHandle());
}

TEST_F(BoxOnScreen, HandsItOnToTheBoxAboveIt) {
  QDialog above(&box_);
  Open(above);
  Activate(box_);
  EXPECT_EQ(QGuiApplication::focusWindow(), above.windowHandle());
}

TEST_F(BoxOnScreen, LeavesItToItsLists) {
  QComboBox choice(&box_);
  choice.addItem("Monday");
  choice.showPopup();
  QWidget& list = *choice.view()->window();
  Activate(list);
  EXPECT_EQ(QGuiApplication::focusWindow(), list.windowHandle());
}

TEST(ComeToFront, LeavesNoLeaveToThoseThatThisProgramStarts) {
  QWidget window;
  window.show();
  qputenv(kLeave, "of the start");
  EXPECT_EQ(LeaveToComeToFront(), "of the start");

  ComeToFront(window, "token 7");

  EXPECT_FALSE(qEnvironmentVariableIsSet(kLeave));
}

}  // namespace
}  // namespace repvolta
