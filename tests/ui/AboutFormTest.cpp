#include <QApplication>
#include <QFont>
#include <QIcon>
#include <QLabel>
#include <QMessageBox>
#include <QPixmap>
#include <QPushButton>
#include <QtTest/QTest>
#include <gtest/gtest.h>

#include "ui/AboutForm.h"

#include "support/Accessibility.h"
#include "support/Modal.h"

namespace repvolta {
namespace {

TEST(AboutForm, IsNamedAfterTheProgram) { EXPECT_EQ(AboutForm().windowTitle(), "About Repvolta"); }

TEST(AboutForm, ShowsTheVersion) {
  AboutForm form;
  EXPECT_EQ(Find<QLabel>(form, "lblVersion").text(), "Version 1.0  - 25th March 07");
}

TEST(AboutForm, ShowsTheCredits) {
  AboutForm form;
  EXPECT_EQ(Find<QLabel>(form, "lblDescription").text(),
            "All Rights Resvered\n"
            "Copyright (C) 2007 the makers of Repvolta\n"
            "Patent Pending\n"
            "Repvolta uses the LAME encoding technology, https://lame.sourceforge.io/");
}

TEST(AboutForm, HasRoomForTheCreditsInALargeFont) {
  AboutForm form;
  QFont font = form.font();
  font.setPointSize(14);
  form.setFont(font);
  form.show();
  QCoreApplication::processEvents();
  const auto& credits = Find<QLabel>(form, "lblDescription");
  EXPECT_GE(credits.height(), 4 * credits.fontMetrics().height());
  EXPECT_GE(credits.width(), credits.sizeHint().width());
}

TEST(AboutForm, ShowsTheIconOfTheProgram) {
  QPixmap picture(64, 64);
  picture.fill(Qt::red);
  QApplication::setWindowIcon(QIcon(picture));
  AboutForm form;
  EXPECT_FALSE(Find<QLabel>(form, "picIcon").pixmap().isNull());
  QApplication::setWindowIcon({});
}

TEST(AboutForm, ClosesOnOk) {
  AboutForm form;
  form.show();
  Find<QPushButton>(form, "cmdOK").click();
  EXPECT_FALSE(form.isVisible());
}

TEST(AboutForm, ClosesOnEnterAndEscape) {
  AboutForm form;
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
    form.show();
    QTest::keyClick(&form, key);
    EXPECT_FALSE(form.isVisible());
  }
}

TEST(AboutForm, SaysThatThereIsNoSystemInformation) {
  AboutForm form;
  QString message;
  WhenModal([&](QWidget& box) {
    message = dynamic_cast<QMessageBox&>(box).text();
    box.close();
  });
  Find<QPushButton>(form, "cmdSysInfo").click();
  EXPECT_EQ(message, "System Information Is Unavailable At This Time");
}

TEST(AboutForm, IsHeardByDistinctNames) {
  const AboutForm form;
  EXPECT_EQ(HeardNames(form), (std::map<std::string, int>{{"OK", 1}, {"System Info...", 1}}));
}

}  // namespace
}  // namespace repvolta
