#include <QFrame>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

#include "ui/ClearIndicators.h"
#include "ui/RestoreBackupForm.h"
#include "ui/TouchScreen.h"

#include "support/Modal.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The form for a backup that was made in another home folder; its plan has a line for each
/// exchange.
class RestoreBackupFormTest : public testing::Test {
 protected:
  RestoreBackupFormTest() {
    question_.heading = "Repvolta backup.zip, made on 2026-11-20 10.30.05";
    question_.exchanges = {{"/home/old", "/home/new"}, {"/srv/music", ""}};
    question_.plan = [](const std::vector<PathExchange>& exchanges) {
      RestoreView view{.lines = {"Adds the settings."}, .changesNothing = false};
      for (const PathExchange& exchange : exchanges) {
        view.lines.push_back(exchange.from + " is " + exchange.to);
      }
      return view;
    };
  }

  static QTableWidget& Table(RestoreBackupForm& form) {
    return Find<QTableWidget>(form, "ExchangeTable");
  }

  static std::vector<std::string> Lines(RestoreBackupForm& form) {
    const QListWidget& list = Find<QListWidget>(form, "PlanList");
    std::vector<std::string> lines;
    for (int i = 0; i < list.count(); ++i) lines.push_back(list.item(i)->text().toStdString());
    return lines;
  }

  static bool CanRestore(RestoreBackupForm& form) {
    return Find<QPushButton>(form, "RestoreButton").isEnabled();
  }

  RestoreQuestion question_;
};

TEST_F(RestoreBackupFormTest, ShowsTheBackupAndThePlan) {
  RestoreBackupForm form(question_);
  EXPECT_EQ(Find<QLabel>(form, "HeadingLabel").text().toStdString(), question_.heading);
  EXPECT_THAT(Lines(form), ElementsAre("Adds the settings.", "/home/old is /home/new"));
  EXPECT_TRUE(CanRestore(form));
}

TEST_F(RestoreBackupFormTest, GivesTheExchangesThatHaveBothSides) {
  RestoreBackupForm form(question_);
  EXPECT_THAT(form.Exchanges(), ElementsAre(PathExchange{"/home/old", "/home/new"}));
}

TEST_F(RestoreBackupFormTest, PlansAnewWhenAFolderIsEntered) {
  RestoreBackupForm form(question_);
  Table(form).item(1, 1)->setText("  /home/new/Music// ");
  EXPECT_THAT(Lines(form), ElementsAre("Adds the settings.", "/home/old is /home/new",
                                       "/srv/music is /home/new/Music"));
}

TEST_F(RestoreBackupFormTest, KeepsThePathsWhereNoFolderIsEntered) {
  RestoreBackupForm form(question_);
  Table(form).item(0, 1)->setText("");
  Table(form).item(1, 1)->setText("Music");
  EXPECT_THAT(form.Exchanges(), IsEmpty());
}

TEST_F(RestoreBackupFormTest, LetsTheFolderOfTheBackupBeShortened) {
  RestoreBackupForm form(question_);
  Table(form).item(1, 0)->setText("/srv");
  Table(form).item(1, 1)->setText("/data");
  EXPECT_EQ(form.Exchanges().back(), (PathExchange{"/srv", "/data"}));
}

TEST_F(RestoreBackupFormTest, AsksForNoFoldersWhenAllAreHere) {
  question_.exchanges.clear();
  RestoreBackupForm form(question_);
  EXPECT_TRUE(Find<QFrame>(form, "ExchangeFrame").isHidden());
}

TEST_F(RestoreBackupFormTest, OffersNothingThatWouldChangeNothing) {
  question_.plan = [](const std::vector<PathExchange>&) {
    return RestoreView{.lines = {"Changes nothing."}, .changesNothing = true};
  };
  RestoreBackupForm form(question_);
  EXPECT_FALSE(CanRestore(form));
}

TEST_F(RestoreBackupFormTest, SaysWhyThereIsNoPlan) {
  question_.plan = [](const std::vector<PathExchange>&) -> RestoreView {
    throw std::runtime_error("The backup is gone");
  };
  RestoreBackupForm form(question_);
  EXPECT_THAT(Lines(form), ElementsAre("The backup is gone"));
  EXPECT_FALSE(CanRestore(form));
}

TEST_F(RestoreBackupFormTest, ChangesAFolderByEnter) {
  RestoreBackupForm form(question_);
  form.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  QTableWidget& table = Table(form);
  table.setFocus();
  table.setCurrentCell(1, 1);
  QTest::keyClick(&table, Qt::Key_Return);
  QTest::keyClicks(QApplication::focusWidget(), "/data");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  QApplication::processEvents();
  EXPECT_EQ(table.item(1, 1)->text(), "/data");
  EXPECT_TRUE(form.isVisible());
}

TEST_F(RestoreBackupFormTest, HasRoomForAllRowsOfFolders) {
  RestoreBackupForm form(question_);
  form.show();
  const QTableWidget& table = Table(form);
  EXPECT_TRUE(table.viewport()->rect().contains(table.visualItemRect(table.item(1, 0))));
}

TEST_F(RestoreBackupFormTest, HasRowsOfFoldersThatAFingerHits) {
  RestoreBackupForm form(question_);
  ClearIndicators style(Pointing::kFinger);
  QTableWidget& table = Table(form);
  table.setStyle(&style);
  form.show();
  EXPECT_GE(table.rowHeight(0), kFingerHeight);
  EXPECT_TRUE(table.viewport()->rect().contains(table.visualItemRect(table.item(1, 0))));
}

TEST_F(RestoreBackupFormTest, HasRowsOfFoldersAsHighAsTheirText) {
  RestoreBackupForm form(question_);
  QFont large = form.font();
  large.setPointSize(40);
  form.setFont(large);
  form.show();
  const QTableWidget& table = Table(form);
  EXPECT_GE(table.rowHeight(0), table.fontMetrics().height());
}

TEST_F(RestoreBackupFormTest, IsReachedByTab) {
  RestoreBackupForm form(question_);
  form.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  QTableWidget& table = Table(form);
  table.setFocus();
  for (const char* name : {"PlanList", "RestoreButton", "CancelButton"}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), name);
  }
}

}  // namespace
}  // namespace repvolta
