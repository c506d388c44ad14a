#include "ui/RowTable.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>

#include "ui/TouchScreen.h"

namespace repvolta {
namespace {

// In characters of the table's font.
constexpr int kWidth = 60;
constexpr int kLeastWidth = 24;

constexpr int kRowMargin = 3;  // a row is 1/3 higher than the font

}  // namespace

RowTable::RowTable(QWidget* parent) : QTableView(parent) {
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setShowGrid(false);
  setTextElideMode(Qt::ElideMiddle);
  setCornerButtonEnabled(false);
  setVerticalScrollMode(ScrollPerPixel);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(std::max(
      fontMetrics().height() + fontMetrics().height() / kRowMargin, LeastRowHeight(*this)));
  horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setSectionsClickable(false);
}

void RowTable::SetFewestRows(int rows) {
  fewestRows_ = rows;
  updateGeometry();
}

void RowTable::StretchColumns(std::initializer_list<int> columns) {
  for (const int column : columns) {
    horizontalHeader()->setSectionResizeMode(column, QHeaderView::Stretch);
  }
}

void RowTable::SelectRow(int row) {
  setCurrentIndex(model() == nullptr ? QModelIndex() : model()->index(row, 0));
}

QSize RowTable::SizeOf(int rows) const {
  return {kWidth * fontMetrics().averageCharWidth(),
          horizontalHeader()->sizeHint().height() + rows * verticalHeader()->defaultSectionSize() +
              2 * frameWidth()};
}

/// In a window that scrolls, a table that asked for all its rows would push the rest out of sight.
QSize RowTable::sizeHint() const { return SizeOf(fewestRows_); }

QSize RowTable::minimumSizeHint() const {
  return {kLeastWidth * fontMetrics().averageCharWidth(), SizeOf(fewestRows_).height()};
}

void RowTable::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
    QTableView::keyPressEvent(event);
    return;
  }
  event->accept();
  if (!event->isAutoRepeat() && currentIndex().isValid()) Q_EMIT RowChosen(SelectedRow());
}

void RowTable::mouseDoubleClickEvent(QMouseEvent* event) {
  QTableView::mouseDoubleClickEvent(event);
  const QModelIndex clicked = indexAt(event->position().toPoint());
  if (event->button() == Qt::LeftButton && clicked.isValid()) Q_EMIT RowChosen(clicked.row());
}

void RowTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (current.row() != previous.row()) Q_EMIT RowSelected(current.row());
}

}  // namespace repvolta
