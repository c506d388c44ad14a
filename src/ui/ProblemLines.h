#pragma once

#include <QStyledItemDelegate>

#include "app/ProblemCount.h"

class QListWidgetItem;

namespace repvolta {

/// Makes the item stand out if its line tells of a problem: by an icon, and in what a screen reader
/// says of it. Its text stays.
void MarkProblem(QListWidgetItem& item, LineKind kind);

/// What the item was marked as.
LineKind KindOf(const QListWidgetItem& item);

/// Paints items that were marked on the palette's other background, and errors bold. The colours
/// are those of the moment, also when the desktop turns dark.
class ProblemLines : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace repvolta
