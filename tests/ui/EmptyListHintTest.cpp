#include <QImage>
#include <QListWidget>
#include <gtest/gtest.h>

#include "ui/EmptyListHint.h"

namespace repvolta {
namespace {

QImage PictureOf(QListWidget& list) { return list.grab().toImage(); }

TEST(EmptyListHint, IsPaintedInAnEmptyListOnly) {
  QListWidget plain;
  QListWidget list;
  new EmptyListHint(&list, "Add one.");
  EXPECT_NE(PictureOf(list), PictureOf(plain));
  plain.addItem("a");
  list.addItem("a");
  EXPECT_EQ(PictureOf(list), PictureOf(plain));
}

TEST(EmptyListHint, BeginsWhereTheListBegins) {
  QListWidget list;
  list.setLayoutDirection(Qt::RightToLeft);
  list.resize(300, 100);
  new EmptyListHint(&list, "Add one.");
  const QImage picture = PictureOf(list);
  const QRect left(0, 0, 150, 100);
  const QRect right(150, 0, 150, 100);
  QListWidget plain;
  plain.setLayoutDirection(Qt::RightToLeft);
  plain.resize(300, 100);
  EXPECT_EQ(picture.copy(left), PictureOf(plain).copy(left));
  EXPECT_NE(picture.copy(right), PictureOf(plain).copy(right));
}

TEST(EmptyListHint, IsHeardAsTheDescriptionOfTheList) {
  QListWidget list;
  new EmptyListHint(&list, "Add one.");
  EXPECT_EQ(list.accessibleDescription(), "Add one.");
}

TEST(EmptyListHint, BelongsToTheList) {
  QListWidget list;
  EXPECT_EQ((new EmptyListHint(&list, "Add one."))->parent(), &list);
}

}  // namespace
}  // namespace repvolta
