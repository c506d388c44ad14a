#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <gtest/gtest.h>

#include "ui/LineList.h"
#include "ui/ProblemLines.h"

namespace repvolta {
namespace {

/// A list of many lines: the first warns, two tell of errors.
class LineListTest : public testing::Test {
 protected:
  LineListTest() {
    OfferCopy(list);
    Add("WARNING: a");
    for (int i = 0; i < 200; ++i) Add("line " + std::to_string(i));
    Add("ERROR: b");
    Add("ERROR: c");
    list.resize(300, 100);
    list.show();
    list.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&list));
  }

  void Add(const std::string& line) {
    auto* item = new QListWidgetItem(QString::fromStdString(line), &list);
    MarkProblem(*item, KindOfLine(line));
    ShowWholeInToolTip(*item);
  }

  std::string Selected() {
    const auto selected = list.selectedItems();
    return selected.size() == 1 ? selected.first()->text().toStdString() : "";
  }

  std::string Copied() { return QApplication::clipboard()->text().toStdString(); }

  QListWidget list;
};

TEST_F(LineListTest, CopiesTheSelectedLinesInTheirOrder) {
  list.setFocus();
  for (const int row : {3, 1, 2}) list.item(row)->setSelected(true);
  QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Copied(), "line 0\nline 1\nline 2");
}

TEST_F(LineListTest, CopiesFromItsMenu) {
  EXPECT_EQ(list.contextMenuPolicy(), Qt::ActionsContextMenu);
  ASSERT_EQ(list.actions().size(), 2);
  EXPECT_EQ(list.actions()[0]->text(), "&Copy");
  list.item(5)->setSelected(true);
  list.actions()[0]->trigger();
  EXPECT_EQ(Copied(), "line 4");
}

TEST_F(LineListTest, KeepsTheClipboardWhenNothingIsSelected) {
  QApplication::clipboard()->setText("before");
  list.actions()[0]->trigger();
  EXPECT_EQ(Copied(), "before");
}

TEST_F(LineListTest, SelectsAllLines) {
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(list.selectedItems().size(), list.count());
}

TEST_F(LineListTest, GoesFromErrorToErrorAndBeginsAnew) {
  SelectNext(list, LineKind::kError);
  EXPECT_EQ(Selected(), "ERROR: b");
  EXPECT_TRUE(list.viewport()->rect().contains(list.visualItemRect(list.currentItem())));
  EXPECT_TRUE(list.hasFocus());
  SelectNext(list, LineKind::kError);
  EXPECT_EQ(Selected(), "ERROR: c");
  SelectNext(list, LineKind::kError);
  EXPECT_EQ(Selected(), "ERROR: b");
}

TEST_F(LineListTest, GoesToTheOnlyWarning) {
  SelectNext(list, LineKind::kWarning);
  SelectNext(list, LineKind::kWarning);
  EXPECT_EQ(Selected(), "WARNING: a");
}

TEST_F(LineListTest, StaysWhereItIsWithoutSuchALine) {
  list.clear();
  SelectNext(list, LineKind::kError);
  Add("line");
  SelectNext(list, LineKind::kError);
  EXPECT_EQ(Selected(), "");
}

TEST_F(LineListTest, HasTheWholeLineInTheToolTip) {
  Add("ERROR: <b>");
  EXPECT_EQ(list.item(list.count() - 1)->toolTip(), "<qt>ERROR: &lt;b&gt;</qt>");
  Add("");
  EXPECT_EQ(list.item(list.count() - 1)->toolTip(), "");
}

}  // namespace
}  // namespace repvolta
