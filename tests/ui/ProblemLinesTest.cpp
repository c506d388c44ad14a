#include <QAccessible>
#include <QListWidget>
#include <gtest/gtest.h>

#include "ui/ProblemLines.h"

namespace repvolta {
namespace {

/// How the lines of a list would be painted.
class PaintedLines : public ProblemLines {
 public:
  QStyleOptionViewItem StyleOf(const QListWidget& list, int row) const {
    QStyleOptionViewItem option;
    option.initFrom(&list);
    initStyleOption(&option, list.model()->index(row, 0));
    return option;
  }
};

class ProblemLinesTest : public testing::Test {
 protected:
  ProblemLinesTest() {
    Add("UPDATE COMPLETE.", LineKind::kPlain);
    Add("WARNING: a", LineKind::kWarning);
    Add("ERROR: b", LineKind::kError);
  }

  void Add(const char* text, LineKind kind) {
    MarkProblem(*new QListWidgetItem(text, &list), kind);
  }

  QString Heard(int row, QAccessible::Text what) {
    return QAccessible::queryAccessibleInterface(&list)->child(row)->text(what);
  }

  QListWidget list;
  PaintedLines lines;
};

TEST_F(ProblemLinesTest, KeepTheirText) {
  EXPECT_EQ(list.item(1)->text(), "WARNING: a");
  EXPECT_EQ(list.item(2)->text(), "ERROR: b");
}

TEST_F(ProblemLinesTest, HaveIconsOfTheirOwn) {
  EXPECT_TRUE(list.item(0)->icon().isNull());
  const auto image = [&](int row) { return list.item(row)->icon().pixmap(16, 16).toImage(); };
  EXPECT_FALSE(image(1).isNull());
  EXPECT_FALSE(image(2).isNull());
  EXPECT_NE(image(1), image(2));
}

TEST_F(ProblemLinesTest, ArePaintedInThePalettesColours) {
  EXPECT_EQ(lines.StyleOf(list, 0).backgroundBrush, QBrush());
  for (const QColor& colour : {QColor(Qt::white), QColor(30, 30, 30)}) {
    QPalette palette = list.palette();
    palette.setColor(QPalette::AlternateBase, colour);
    list.setPalette(palette);
    EXPECT_EQ(lines.StyleOf(list, 1).backgroundBrush.color(), colour);
    EXPECT_EQ(lines.StyleOf(list, 2).backgroundBrush.color(), colour);
  }
}

TEST_F(ProblemLinesTest, AreBoldWhenTheyAreErrors) {
  EXPECT_FALSE(lines.StyleOf(list, 0).font.bold());
  EXPECT_FALSE(lines.StyleOf(list, 1).font.bold());
  EXPECT_TRUE(lines.StyleOf(list, 2).font.bold());
}

TEST_F(ProblemLinesTest, AreHeardAsProblems) {
  EXPECT_EQ(Heard(0, QAccessible::Description), "");
  EXPECT_EQ(Heard(1, QAccessible::Name), "WARNING: a");
  EXPECT_EQ(Heard(1, QAccessible::Description), "Warning");
  EXPECT_EQ(Heard(2, QAccessible::Name), "ERROR: b");
  EXPECT_EQ(Heard(2, QAccessible::Description), "Error");
}

}  // namespace
}  // namespace repvolta
