#include <QAccessible>
#include <QDialog>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ui/RowTable.h"
#include "ui/TextTable.h"

namespace repvolta {
namespace {

using testing::ElementsAre;

/// A table of two rows in a dialog whose button Enter would click.
class RowTables : public testing::Test {
 protected:
  RowTables() {
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(&table);
    layout->addWidget(&button);
    button.setDefault(true);
    QObject::connect(&button, &QPushButton::clicked, [this] { ++clicked; });
    QObject::connect(&table, &RowTable::RowChosen, [this](int row) { chosen.push_back(row); });
    texts.Fill({"File", "Size"}, {{.cells = {"a", "1 <b>"}, .description = "first"},
                                  {.cells = {"b", "2"}, .description = "second"}});
    texts.AlignRight({1});
    table.setModel(&texts);
    dialog.show();
    table.setFocus();
  }
  ~RowTables() override {
    table.setParent(nullptr);
    button.setParent(nullptr);
  }

  QDialog dialog;
  TextTable texts;
  RowTable table;
  QPushButton button;
  int clicked = 0;
  std::vector<int> chosen;
};

TEST_F(RowTables, SelectOneWholeRow) {
  table.SelectRow(1);
  EXPECT_EQ(table.SelectedRow(), 1);
  EXPECT_EQ(table.selectionModel()->selectedIndexes().size(), 2);
}

TEST_F(RowTables, ChooseTheSelectedRowByEnterAndKeepEnterFromTheDialog) {
  QTest::keyClick(&table, Qt::Key_Return);
  table.SelectRow(1);
  QTest::keyClick(&table, Qt::Key_Enter);
  EXPECT_EQ(clicked, 0);
  EXPECT_EQ(chosen.back(), 1);
}

TEST_F(RowTables, ChooseARowByADoubleClick) {
  const QPoint place = table.visualRect(texts.index(1, 0)).center();
  QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, place);
  QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, place);
  EXPECT_THAT(chosen, ElementsAre(1));
}

TEST_F(RowTables, TellOfEachRowOnce) {
  std::vector<int> selected;
  QObject::connect(&table, &RowTable::RowSelected, [&](int row) { selected.push_back(row); });
  table.SelectRow(0);
  QTest::keyClick(&table, Qt::Key_Right);
  QTest::keyClick(&table, Qt::Key_Down);
  EXPECT_EQ(selected.back(), 1);
  EXPECT_EQ(std::count(selected.begin(), selected.end(), 1), 1);
}

TEST_F(RowTables, SayTheColumnWithEachCell) {
  QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(&table);
  ASSERT_NE(heard->tableInterface(), nullptr);
  EXPECT_EQ(heard->tableInterface()->cellAt(1, 0)->text(QAccessible::Name), "File: b");
  EXPECT_EQ(heard->tableInterface()->cellAt(1, 1)->text(QAccessible::Name), "Size: 2");
  EXPECT_EQ(heard->tableInterface()->cellAt(1, 1)->text(QAccessible::Description), "second");
  EXPECT_EQ(heard->tableInterface()->columnDescription(1), "Size");
}

TEST_F(RowTables, MarkOneRow) {
  texts.MarkRow(1, "heard now");
  EXPECT_EQ(texts.index(1, 0).data(Qt::AccessibleTextRole), "File: b, heard now");
  EXPECT_FALSE(texts.index(1, 0).data(Qt::DecorationRole).isNull());
  EXPECT_TRUE(texts.index(1, 1).data(Qt::FontRole).value<QFont>().bold());
  texts.MarkRow(-1, "");
  EXPECT_EQ(texts.index(1, 0).data(Qt::AccessibleTextRole), "File: b");
  EXPECT_TRUE(texts.index(1, 0).data(Qt::DecorationRole).isNull());
}

TEST_F(RowTables, ShowTextsWithMarkupAsTheyAre) {
  EXPECT_EQ(texts.index(0, 1).data().toString(), "1 <b>");
  EXPECT_EQ(texts.index(0, 1).data(Qt::ToolTipRole), "<qt>1 &lt;b&gt;</qt>");
}

TEST_F(RowTables, HaveFiguresAtTheRight) {
  const auto alignmentOf = [&](int column) {
    return Qt::Alignment(texts.index(0, column).data(Qt::TextAlignmentRole).toInt());
  };
  EXPECT_TRUE(alignmentOf(1) & Qt::AlignRight);
  EXPECT_TRUE(alignmentOf(0) & Qt::AlignLeft);
}

}  // namespace
}  // namespace repvolta
