#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include "ui/Keys.h"

namespace repvolta {
namespace {

/// A window with a field in a part of it, a field beside that, and a button that counts its clicks.
class KeysTest : public testing::Test {
 protected:
  KeysTest() {
    auto* whole = new QHBoxLayout(&window_);
    whole->addWidget(part_);
    whole->addWidget(outside_);
    whole->addWidget(button_);
    (new QHBoxLayout(part_))->addWidget(inside_);
    QObject::connect(button_, &QPushButton::clicked, [this] { ++clicks_; });
    window_.show();
    window_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
  }

  int ClicksByKeyIn(QWidget* field) {
    clicks_ = 0;
    field->setFocus();
    QTest::keyClick(field, Qt::Key_F2);
    return clicks_;
  }

  QWidget window_;
  QWidget* part_ = new QWidget;
  QLineEdit* inside_ = new QLineEdit;
  QLineEdit* outside_ = new QLineEdit;
  QPushButton* button_ = new QPushButton;
  int clicks_ = 0;
};

TEST_F(KeysTest, OfAPartWorkInItAlone) {
  AddKey(part_, Qt::Key_F2, button_);
  EXPECT_EQ(ClicksByKeyIn(inside_), 1);
  EXPECT_EQ(ClicksByKeyIn(outside_), 0);
}

TEST_F(KeysTest, OfTheWindowWorkAnywhereWhileTheirPartIsVisible) {
  AddWindowKey(part_, Qt::Key_F2, button_);
  EXPECT_EQ(ClicksByKeyIn(inside_), 1);
  EXPECT_EQ(ClicksByKeyIn(outside_), 1);
  part_->hide();
  EXPECT_EQ(ClicksByKeyIn(outside_), 0);
}

TEST_F(KeysTest, ClickNoDisabledButton) {
  AddKey(part_, Qt::Key_F2, button_);
  button_->setEnabled(false);
  EXPECT_EQ(ClicksByKeyIn(inside_), 0);
}

}  // namespace
}  // namespace repvolta
