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
