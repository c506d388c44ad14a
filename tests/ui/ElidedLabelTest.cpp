#include <QAccessible>
#include <gtest/gtest.h>

#include "ui/ElidedLabel.h"

namespace repvolta {
namespace {

TEST(ElidedLabel, LeavesOutTheMiddleWhereItIsTooNarrow) {
  ElidedLabel label;
  label.resize(100, 20);
  label.SetWholeText("Short.mp3");
  EXPECT_EQ(label.text(), "Short.mp3");
  label.SetWholeText("A song with a name that is much too long for it.mp3");
  EXPECT_TRUE(label.text().contains(QChar(0x2026)));
  EXPECT_TRUE(label.text().endsWith("3"));
}

TEST(ElidedLabel, ShowsAllOfItWhenItIsWideAgain) {
  const QString text = "A song with a name that is much too long for it.mp3";
  ElidedLabel label;
  label.resize(100, 20);
  label.SetWholeText(text);
  label.show();
  label.resize(2000, 20);
  EXPECT_EQ(label.text(), text);
}

TEST(ElidedLabel, IsHeardAsAWhole) {
  const QString text = "A song with a name that is much too long for it.mp3";
  ElidedLabel label;
  label.resize(100, 20);
  label.SetWholeText(text);
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&label)->text(QAccessible::Name), text);
}

}  // namespace
}  // namespace repvolta
