#include <QScrollBar>
#include <QStandardItemModel>
#include <gtest/gtest.h>

#include "ui/ReadableTree.h"

namespace repvolta {
namespace {

constexpr int kMoreThanFit = 500;

class ReadableTree : public testing::Test {
 protected:
  ReadableTree() {
    tree_.setModel(&rows_);
    KeepReadable(tree_);
    tree_.resize(200, 200);
    tree_.show();
  }

  void Add() {
    QList<QStandardItem*> added;
    for (int i = 0; i < kMoreThanFit; ++i) added.append(new QStandardItem("folder"));
    rows_.invisibleRootItem()->appendRows(added);
  }

  /// The way to scroll, which a layout that is put off has not changed yet.
  int Length() const { return tree_.verticalScrollBar()->maximum(); }

  QStandardItemModel rows_;
  QTreeView tree_;
};

TEST_F(ReadableTree, IsLaidOutWhenRowsHaveCome) {
  Add();
  EXPECT_GT(Length(), 0);
}

TEST_F(ReadableTree, IsLaidOutWhenRowsHaveGone) {
  Add();
  tree_.doItemsLayout();
  rows_.removeRows(0, kMoreThanFit);
  EXPECT_EQ(Length(), 0);
}

}  // namespace
}  // namespace repvolta
