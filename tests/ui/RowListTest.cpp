#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

#include "ui/RowList.h"

namespace repvolta {
namespace {

/// A list of three rows that has the focus; no row is selected.
class Rows : public testing::Test {
 protected:
  Rows() {
    list.SetRows({"a", "b", "c"});
    list.show();
    list.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&list));
    list.setFocus();
  }

  RowList list;
};

TEST_F(Rows, TheFocusSelectsNoRow) { EXPECT_EQ(list.SelectedRow(), -1); }

TEST_F(Rows, TheFirstArrowKeySelectsTheCurrentRow) {
  QTest::keyClick(&list, Qt::Key_Down);
  EXPECT_EQ(list.SelectedRow(), 0);
  QTest::keyClick(&list, Qt::Key_Down);
  EXPECT_EQ(list.SelectedRow(), 1);
}

TEST_F(Rows, ARowThatIsNotThereSelectsNone) {
  for (int row : {-1, 3}) {
    list.SelectRow(1);
    list.SelectRow(row);
    EXPECT_EQ(list.SelectedRow(), -1) << row;
  }
}

TEST_F(Rows, ASelectionIsTold) {
  QSignalSpy selected(&list, &RowList::RowSelected);
  list.SelectRow(2);
  ASSERT_EQ(selected.count(), 1);
  EXPECT_EQ(selected[0][0].toInt(), 2);
}

TEST_F(Rows, EnterChoosesTheSelectedRow) {
  QSignalSpy chosen(&list, &RowList::RowChosen);
  QTest::keyClick(&list, Qt::Key_Return);
  EXPECT_EQ(chosen.count(), 0);
  list.SelectRow(1);
  QTest::keyClick(&list, Qt::Key_Return);
  QTest::keyClick(&list, Qt::Key_Enter);
  ASSERT_EQ(chosen.count(), 2);
  EXPECT_EQ(chosen[1][0].toInt(), 1);
}

TEST_F(Rows, EnterThatIsHeldDownChoosesOnce) {
  QSignalSpy chosen(&list, &RowList::RowChosen);
  list.SelectRow(1);
  for (const bool repeated : {false, true, true}) {
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), repeated);
    QApplication::sendEvent(&list, &enter);
  }
  EXPECT_EQ(chosen.count(), 1);
}

TEST_F(Rows, ADoubleClickOfTheLeftButtonChooses) {
  QSignalSpy chosen(&list, &RowList::RowChosen);
  list.SelectRow(1);
  const QPoint place = list.visualItemRect(list.item(1)).center();
  QTest::mouseDClick(list.viewport(), Qt::RightButton, {}, place);
  EXPECT_EQ(chosen.count(), 0);
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
  EXPECT_EQ(chosen.count(), 1);
}

TEST_F(Rows, OnlyTheEmptyListShowsItsHint) {
  const auto picture = [this] { return list.grab().toImage(); };
  list.SetRows({});
  const QImage empty = picture();
  list.SetRows({"a", "b", "c"});
  const QImage rows = picture();
  list.SetRows({});
  list.SetHint("Add one.");
  EXPECT_NE(picture(), empty);
  list.SetRows({"a", "b", "c"});
  EXPECT_EQ(picture(), rows);
}

TEST_F(Rows, NewRowsAreNotSelectedAndKeepTheScrollPosition) {
  QStringList rows;
  for (int i = 0; i < 100; ++i) rows.append(QString::number(i));
  list.SetRows(rows);
  list.SelectRow(99);
  list.verticalScrollBar()->setValue(50);
  list.SetRows(rows);
  EXPECT_EQ(list.SelectedRow(), -1);
  EXPECT_EQ(list.verticalScrollBar()->value(), 50);
}

TEST_F(Rows, ToolTipsShowTheRowAsItIsAndTheHelpOfTheList) {
  list.setToolTip("Enter opens it.");
  list.SetRows({"<b>R&B"});
  EXPECT_EQ(list.item(0)->toolTip(), "<qt>&lt;b&gt;R&amp;B<br>Enter opens it.</qt>");
}

TEST_F(Rows, TheHeightFollowsTheRowsAndTheFont) {
  list.SetVisibleRows(3);
  const int three = list.sizeHint().height();
  list.SetVisibleRows(6);
  const int six = list.sizeHint().height();
  QFont font = list.font();
  font.setPointSizeF(font.pointSizeF() * 2);
  list.setFont(font);
  EXPECT_GT(six, three * 3 / 2);
  EXPECT_GT(list.sizeHint().height(), six * 3 / 2);
}

TEST_F(Rows, TheWidthFollowsTheCharacters) {
  const int narrow = list.sizeHint().width();
  list.SetVisibleCharacters(40);
  EXPECT_GT(list.sizeHint().width(), narrow * 3);
  EXPECT_EQ(list.minimumSizeHint().width(), narrow);
}

TEST_F(Rows, TheHintIsHeardToo) {
  list.SetHint("Add one.");
  list.SetHint("Add another.");
  EXPECT_EQ(list.accessibleDescription(), "Add another.");
}

/// The row that a list with the rows a, b and c selects after it was refilled, when `selected` was
/// selected before.
int KeptIn(int selected, const QStringList& rows) {
  RowList list;
  list.SetRows({"a", "b", "c"});
  list.SelectRow(selected);
  {
    const KeptRow kept(list);
    list.SetRows(rows);
    list.SelectRow(0);
  }
  return list.SelectedRow();
}

TEST(KeptRow, IsTheSameRowWhereItHasTheSameText) {
  EXPECT_EQ(KeptIn(1, {"a", "b", "c"}), 1);
  EXPECT_EQ(KeptIn(1, {"b", "b"}), 1);
}

TEST(KeptRow, IsElsewhereWhereTheTextIs) {
  EXPECT_EQ(KeptIn(1, {"x", "a", "b"}), 2);
  EXPECT_EQ(KeptIn(2, {"a", "c"}), 1);
}

TEST(KeptRow, IsNoneWithoutTheText) {
  EXPECT_EQ(KeptIn(1, {"a", "B"}), -1);
  EXPECT_EQ(KeptIn(1, {}), -1);
}

TEST(KeptRow, IsNoneWhenNoneWasSelected) { EXPECT_EQ(KeptIn(-1, {"a", "b"}), -1); }

}  // namespace
}  // namespace repvolta
