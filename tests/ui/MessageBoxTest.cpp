#include <QApplication>
#include <QLabel>
#include <QProxyStyle>
#include <QPushButton>
#include <QtTest/QTest>
#include <gtest/gtest.h>

#include "ui/MessageBox.h"

#include "support/Modal.h"

namespace repvolta {
namespace {

using StandardButtons = QMessageBox::StandardButtons;

TEST(MessageBox, ShowsItsTitleAndText) {
  const MessageBox box("Cannot add any more Sets", "Repvolta", QMessageBox::Ok);
  EXPECT_EQ(box.windowTitle(), "Repvolta");
  EXPECT_EQ(box.text(), "Cannot add any more Sets");
}

TEST(MessageBox, ShowsMarkupAsItIs) {
  const MessageBox box("<b>Legs</b> & more", "Repvolta", QMessageBox::Ok);
  EXPECT_EQ(box.textFormat(), Qt::PlainText);
  EXPECT_EQ(box.text(), "<b>Legs</b> & more");
}

TEST(MessageBox, BreaksTheLineAtACarriageReturn) {
  const MessageBox box("Are you SURE?\rMonday.RPV", "Repvolta", QMessageBox::Ok);
  EXPECT_EQ(box.text(), "Are you SURE?\nMonday.RPV");
}

TEST(MessageBox, HasTheIconOfWhatItDoes) {
  EXPECT_EQ(MessageBox("", "", QMessageBox::Ok).icon(), QMessageBox::Information);
  EXPECT_EQ(MessageBox("", "", QMessageBox::Ok | QMessageBox::Cancel).icon(),
            QMessageBox::Question);
}

/// The style of a desktop whose boxes have icons in their buttons.
class StyleWithIcons : public QProxyStyle {
 public:
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* result) const override {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 1;
    return QProxyStyle::styleHint(hint, option, widget, result);
  }
};

TEST(MessageBox, HasNoIconsInItsButtonsOnAnyDesktop) {
  const QString style = QApplication::style()->name();
  QApplication::setStyle(new StyleWithIcons);
  const MessageBox box("text", "title", QMessageBox::Ok | QMessageBox::Cancel);
  for (const QAbstractButton* button : box.buttons()) EXPECT_TRUE(button->icon().isNull());
  QApplication::setStyle(style);
}

TEST(MessageBox, HasOnlyAnOkButtonWhenItTells) {
  StandardButtons buttons;
  WhenModal([&](QWidget& box) {
    buttons = dynamic_cast<QMessageBox&>(box).standardButtons();
    QTest::keyClick(&box, Qt::Key_Return);
  });
  MessageBox::Show(nullptr, "text", "title");
  EXPECT_EQ(buttons, QMessageBox::Ok);
}

TEST(MessageBox, ClosesOnEscape) {
  WhenModal([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  MessageBox::Show(nullptr, "text", "title");
}

TEST(MessageBox, AsksWithOkAndCancel) {
  StandardButtons buttons;
  WhenModal([&](QWidget& box) {
    buttons = dynamic_cast<QMessageBox&>(box).standardButtons();
    QTest::keyClick(&box, Qt::Key_Escape);
  });
  MessageBox::Confirm(nullptr, "text", "title");
  EXPECT_EQ(buttons, QMessageBox::Ok | QMessageBox::Cancel);
}

TEST(MessageBox, TakesEnterAsOk) {
  WhenModal([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
  EXPECT_TRUE(MessageBox::Confirm(nullptr, "text", "title"));
}

TEST(MessageBox, TakesEscapeAsCancel) {
  WhenModal([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  EXPECT_FALSE(MessageBox::Confirm(nullptr, "text", "title"));
}

TEST(MessageBox, TakesItsCloseButtonAsCancel) {
  WhenModal([](QWidget& box) { box.close(); });
  EXPECT_FALSE(MessageBox::Confirm(nullptr, "text", "title"));
}

}  // namespace
}  // namespace repvolta
