#include "ui/EmptyListHint.h"

#include <QEvent>
#include <QPainter>

namespace repvolta {

EmptyListHint::EmptyListHint(QAbstractItemView* list, const QString& hint)
    : QObject(list), list_(list), hint_(hint) {
  list_->viewport()->installEventFilter(this);
  list_->setAccessibleDescription(hint_);
}

bool EmptyListHint::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Paint && list_->model()->rowCount() == 0) {
    QPainter painter(list_->viewport());
    painter.setPen(list_->palette().color(QPalette::PlaceholderText));
    const int margin = list_->fontMetrics().averageCharWidth();
    painter.drawText(list_->viewport()->rect().adjusted(margin, margin, -margin, -margin),
                     Qt::AlignTop | Qt::AlignLeft | Qt::TextWordWrap, hint_);
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace repvolta
