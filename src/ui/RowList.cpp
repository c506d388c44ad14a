#include "ui/RowList.h"

#include <QEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>

#include "ui/EmptyListHint.h"

namespace repvolta {
namespace {

// The smallest part of a list that is always visible.
constexpr int kFewestRows = 3;
constexpr int kFewestCharacters = 9;

constexpr int kRowMargin = 3;  // a row is 1/3 higher than the font

}  // namespace

QStringList QtTexts(const std::vector<std::string>& texts) {
  QStringList list;
  for (const std::string& text : texts) list.append(QString::fromStdString(text));
  return list;
}

RowList::RowList(QWidget* parent) : QListWidget(parent) {
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  connect(this, &QListWidget::itemSelectionChanged, this,
          [this] { emit RowSelected(SelectedRow()); });
}

void RowList::SetHint(const QString& hint) {
  delete hint_;
  hint_ = new EmptyListHint(this, hint);
  viewport()->update();
}

void RowList::SetVisibleRows(int rows) {
  visibleRows_ = rows;
  updateGeometry();
}

void RowList::SetVisibleCharacters(int characters) {
  visibleCharacters_ = characters;
  updateGeometry();
}

int RowList::SelectedRow() const {
  const QList<QListWidgetItem*> selected = selectedItems();
  return selected.isEmpty() ? -1 : row(selected.first());
}

void RowList::SelectRow(int row) {
  if (row < 0 || row >= count()) {
    setCurrentRow(-1);
    clearSelection();
  } else {
    setCurrentRow(row, QItemSelectionModel::ClearAndSelect);
  }
}

void RowList::SetRows(const QStringList& rows) {
  const int position = verticalScrollBar()->value();
  clear();
  addItems(rows);
  const QString help = toolTip().isEmpty() ? QString() : "<br>" + toolTip().toHtmlEscaped();
  for (int i = 0; i < count(); ++i) {
    // Escaped rich text, so that no character of the row is taken for markup.
    item(i)->setToolTip("<qt>" + rows[i].toHtmlEscaped() + help + "</qt>");
  }
  doItemsLayout();
  verticalScrollBar()->setValue(position);
}

QSize RowList::SizeOf(int characters, int rows) const {
  const int rowHeight = fontMetrics().height() + fontMetrics().height() / kRowMargin;
  return {fontMetrics().averageCharWidth() * characters + 2 * frameWidth(),
          rowHeight * rows + 2 * frameWidth()};
}

QSize RowList::sizeHint() const { return SizeOf(visibleCharacters_, visibleRows_); }

QSize RowList::minimumSizeHint() const {
  return SizeOf(std::min(visibleCharacters_, kFewestCharacters),
                std::min(visibleRows_, kFewestRows));
}

void RowList::EmitChosen() {
  if (SelectedRow() >= 0) emit RowChosen(SelectedRow());
}

void RowList::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      event->accept();
      if (!event->isAutoRepeat()) EmitChosen();
      return;
    case Qt::Key_Up:
    case Qt::Key_Down:
      if (event->modifiers() == Qt::NoModifier && SelectedRow() < 0 && currentRow() >= 0) {
        SelectRow(currentRow());
        return;
      }
      break;
    default:
      break;
  }
  QListWidget::keyPressEvent(event);
}

void RowList::mouseDoubleClickEvent(QMouseEvent* event) {
  QListWidget::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton && itemAt(event->position().toPoint()) != nullptr) {
    EmitChosen();
  }
}

void RowList::changeEvent(QEvent* event) {
  QListWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) updateGeometry();
}

KeptRow::KeptRow(RowList& list)
    : list_(list),
      row_(list.SelectedRow()),
      text_(row_ < 0 ? QString() : list.item(row_)->text()) {}

KeptRow::~KeptRow() {
  const int row = RowOfText();
  if (row != list_.SelectedRow()) list_.SelectRow(row);
}

int KeptRow::RowOfText() const {
  if (row_ < 0) return row_;
  const QListWidgetItem* item = list_.item(row_);
  if (item != nullptr && item->text() == text_) return row_;
  const QList<QListWidgetItem*> found = list_.findItems(text_, Qt::MatchExactly);
  return found.isEmpty() ? -1 : list_.row(found.first());
}

}  // namespace repvolta
