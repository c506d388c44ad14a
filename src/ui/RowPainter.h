#pragma once

#include <QStyledItemDelegate>

class QPainter;

namespace repvolta {

/// Draws a frame of `width` pixels just inside `place`.
void DrawFrame(QPainter& painter, const QRect& place, const QColor& colour, int width);

/// Paints the rows of lists that stand side by side: the selected row has the same colours in all
/// of them, whichever has the focus, and the row with the focus has a thin frame. An
/// icon makes no row higher.
class RowPainter : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace repvolta
