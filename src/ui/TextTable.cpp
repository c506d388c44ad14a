#include "ui/TextTable.h"

#include <QApplication>
#include <QFont>
#include <QStyle>

namespace repvolta {

void TextTable::Fill(const QStringList& headings, const std::vector<Row>& rows) {
  beginResetModel();
  headings_ = headings;
  rows_ = rows;
  marked_ = -1;
  endResetModel();
}

void TextTable::MarkRow(int row, const QString& meaning) {
  if (row == marked_ && meaning == meaning_) return;
  const int before = marked_;
  marked_ = row;
  meaning_ = meaning;
  for (const int changed : {before, row}) {
    if (changed >= 0) Q_EMIT dataChanged(index(changed, 0), index(changed, columnCount() - 1));
  }
}

int TextTable::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int TextTable::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(headings_.size());
}

QVariant TextTable::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const Row& row = rows_[static_cast<std::size_t>(index.row())];
  switch (role) {
    case Qt::DisplayRole:
      return row.cells[index.column()];
    case Qt::ToolTipRole:
      // Escaped rich text, so that no character of the cell is taken for markup.
      return "<qt>" + row.cells[index.column()].toHtmlEscaped() + "</qt>";
    case Qt::AccessibleTextRole:
      return HeardText(index);
    case Qt::AccessibleDescriptionRole:
      return row.description;
    case Qt::TextAlignmentRole:
      return QVariant(Qt::AlignVCenter |
                      (rightColumns_.contains(index.column()) ? Qt::AlignRight : Qt::AlignLeft));
    default:
      return Decoration(index, role);
  }
}

QString TextTable::HeardText(const QModelIndex& index) const {
  const Row& row = rows_[static_cast<std::size_t>(index.row())];
  const QString text = headings_[index.column()] + ": " + row.cells[index.column()];
  return index.row() == marked_ ? text + ", " + meaning_ : text;
}

QVariant TextTable::Decoration(const QModelIndex& index, int role) const {
  if (index.row() != marked_) return {};
  if (role == Qt::DecorationRole && index.column() == 0) {
    return QApplication::style()->standardIcon(QStyle::SP_MediaVolume);
  }
  if (role == Qt::FontRole) {
    QFont bold;
    bold.setBold(true);
    return bold;
  }
  return {};
}

QVariant TextTable::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical || section < 0 || section >= headings_.size()) return {};
  if (role == Qt::DisplayRole) return headings_[section];
  if (role == Qt::TextAlignmentRole) {
    return QVariant(Qt::AlignVCenter |
                    (rightColumns_.contains(section) ? Qt::AlignRight : Qt::AlignLeft));
  }
  return {};
}

}  // namespace repvolta
