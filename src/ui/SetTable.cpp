#include "ui/SetTable.h"

#include <QEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>

namespace repvolta {

SetTable::SetTable(const Lists& lists, QObject* parent) : QObject(parent), lists_(lists) {
  for (RowList* list : lists_) {
    list->installEventFilter(this);
    connect(list, &RowList::RowSelected, this, [this](int row) {
      if (!selecting_) SelectRow(row);
    });
    for (RowList* other : lists_) {
      connect(list->verticalScrollBar(), &QScrollBar::valueChanged, other->verticalScrollBar(),
              &QScrollBar::setValue);
    }
  }
}

void SetTable::SetRows(const Columns& columns) {
  const QScopedValueRollback<bool> selecting(selecting_, true);
  for (std::size_t i = 0; i < lists_.size(); ++i) lists_[i]->SetRows(columns[i]);
}

void SetTable::SelectRow(int row) {
  const QScopedValueRollback<bool> selecting(selecting_, true);
  for (RowList* list : lists_) list->SelectRow(row);
}

bool SetTable::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const auto* keyEvent = static_cast<QKeyEvent*>(event);
  if (keyEvent->modifiers() != Qt::NoModifier) return false;
  if (keyEvent->key() != Qt::Key_Left && keyEvent->key() != Qt::Key_Right) return false;
  // The lists stand in the order in which the desktop's language is read.
  const auto& list = *static_cast<QWidget*>(watched);
  const Qt::Key next = list.isRightToLeft() ? Qt::Key_Left : Qt::Key_Right;
  MoveFocus(watched, keyEvent->key() == next ? 1 : -1);
  return true;
}

void SetTable::MoveFocus(QObject* from, int step) {
  const auto place = std::find(lists_.begin(), lists_.end(), from) - lists_.begin() + step;
  if (place < 0 || place >= static_cast<std::ptrdiff_t>(lists_.size())) return;
  lists_[static_cast<std::size_t>(place)]->setFocus(Qt::TabFocusReason);
}

}  // namespace repvolta
