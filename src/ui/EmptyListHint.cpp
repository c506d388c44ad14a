#include "ui/EmptyListHint.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>

namespace repvolta {

EmptyListHint::EmptyListHint(QAbstractItemView* list, const QString& hint)
    : QObject(list), list_(list), hint_(hint) {
  list_->viewport()->installEventFilter(this);
  list_->setAccessibleDescription(hint_);
}

bool EmptyListHint::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Paint && list_->model()->rowCount() == 0) {
    QPainter painter(list_->viewport());
    const Qt::Alignment beginning =
        QStyle::visualAlignment(list_->layoutDirection(), Qt::AlignTop | Qt::AlignLeft);
    painter.setPen(list_->palette().color(QPalette::PlaceholderText));
    const int margin = list_->fontMetrics().averageCharWidth();
    painter.drawText(list_->viewport()->rect().adjusted(margin, margin, -margin, -margin),
                     static_cast<int>(beginning) | Qt::TextWordWrap, hint_);
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace repvolta
