#include "ui/RowList.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "ui/EmptyListHint.h"
#include "ui/RowPainter.h"
#include "ui/TouchScreen.h"

namespace repvolta {
namespace {

// The smallest part of a list that is always visible.
constexpr int kFewestRows = 3;
constexpr int kFewestCharacters = 9;

constexpr int kFocusFrame = 2;  // pixels

constexpr int kRowMargin = 3;  // a row is 1/3 higher than the font

}  // namespace

QStringList QtTexts(const std::vector<std::string>& texts) {
  QStringList list;
  for (const std::string& text : texts) list.append(QString::fromStdString(text));
  return list;
}

RowList::RowList(QWidget* parent) : QListWidget(parent) {
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  // Lists that scroll together must count alike, also while a finger moves one of them.
  setVerticalScrollMode(ScrollPerPixel);
  setItemDelegate(new RowPainter(this));
  connect(this, &QListWidget::itemSelectionChanged, this,
          [this] { Q_EMIT RowSelected(SelectedRow()); });
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
  for (int i = 0; i < count(); ++i) item(i)->setToolTip(ToolTipOf(rows[i], {}));
  doItemsLayout();
  verticalScrollBar()->setValue(position);
}

void RowList::SetRemark(int row, const QString& remark) {
  item(row)->setToolTip(ToolTipOf(item(row)->text(), remark));
  item(row)->setData(Qt::AccessibleDescriptionRole, remark);
}

/// Escaped rich text, so that no character of the row is taken for markup.
QString RowList::ToolTipOf(const QString& text, const QString& remark) const {
  QString tip = "<qt>" + text.toHtmlEscaped();
  for (const QString& line : {remark, toolTip()}) {
    if (!line.isEmpty()) tip += "<br>" + line.toHtmlEscaped();
  }
  return tip + "</qt>";
}

QSize RowList::SizeOf(int characters, int rows) const {
  const int rowHeight =
      std::max(fontMetrics().height() + fontMetrics().height() / kRowMargin, LeastRowHeight(*this));
  return {fontMetrics().averageCharWidth() * characters + 2 * frameWidth(),
          rowHeight * rows + 2 * frameWidth()};
}

QSize RowList::sizeHint() const { return SizeOf(visibleCharacters_, visibleRows_); }

QSize RowList::minimumSizeHint() const {
  return SizeOf(std::min(visibleCharacters_, kFewestCharacters),
                std::min(visibleRows_, kFewestRows));
}

void RowList::EmitChosen() {
  if (SelectedRow() >= 0) Q_EMIT RowChosen(SelectedRow());
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

void RowList::paintEvent(QPaintEvent* event) {
  QListWidget::paintEvent(event);
  if (!hasFocus()) return;
  QPainter painter(viewport());
  DrawFrame(painter, viewport()->rect(), palette().color(QPalette::Text), kFocusFrame);
}

// The frame lies above the rows, so it is painted anew whenever they move.

void RowList::focusInEvent(QFocusEvent* event) {
  QListWidget::focusInEvent(event);
  viewport()->update();
}

void RowList::focusOutEvent(QFocusEvent* event) {
  QListWidget::focusOutEvent(event);
  viewport()->update();
}

void RowList::scrollContentsBy(int dx, int dy) {
  QListWidget::scrollContentsBy(dx, dy);
  viewport()->update();
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
