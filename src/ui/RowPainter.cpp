#include "ui/RowPainter.h"

#include <QPainter>
#include <QStyle>
#include <QWidget>

namespace repvolta {

void DrawFrame(QPainter& painter, const QRect& place, const QColor& colour, int width) {
  const QRect inner = place.adjusted(width, width, -width, -width);
  for (const QRect& side : QRegion(place).subtracted(inner)) painter.fillRect(side, colour);
}

void RowPainter::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  if (option->state & QStyle::State_Selected) option->state |= QStyle::State_Active;
  // The style's own mark of the focus can hardly be seen in dark colours.
  option->state &= ~QStyle::State_HasFocus;
}

QSize RowPainter::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QStyleOptionViewItem plain(option);
  initStyleOption(&plain, index);
  plain.features &= ~QStyleOptionViewItem::HasDecoration;
  return plain.widget->style()->sizeFromContents(QStyle::CT_ItemViewItem, &plain, {}, plain.widget);
}

void RowPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                       const QModelIndex& index) const {
  QStyledItemDelegate::paint(painter, option, index);
  if (!(option.state & QStyle::State_HasFocus)) return;
  const bool isSelected = option.state & QStyle::State_Selected;
  DrawFrame(*painter, option.rect.adjusted(2, 0, -2, 0),
            option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text), 1);
}

}  // namespace repvolta
