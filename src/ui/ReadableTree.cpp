#include "ui/ReadableTree.h"

#include <QAbstractItemModel>

namespace repvolta {

void KeepReadable(QTreeView& tree) {
  // Asking what is at a point does the layout that is due.
  const auto layOut = [&tree] { static_cast<void>(tree.indexAt({})); };
  const QAbstractItemModel* model = tree.model();
  QObject::connect(model, &QAbstractItemModel::rowsInserted, &tree, layOut);
  QObject::connect(model, &QAbstractItemModel::rowsRemoved, &tree, layOut);
  QObject::connect(model, &QAbstractItemModel::layoutChanged, &tree, layOut);
  QObject::connect(model, &QAbstractItemModel::modelReset, &tree, layOut);
}

}  // namespace repvolta
