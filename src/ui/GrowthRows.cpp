#include "ui/GrowthRows.h"

#include <array>

namespace repvolta {
namespace {

struct Column {
  const char* name;
  std::string GrowthRow::* text;
  Qt::Alignment alignment;
};

constexpr Qt::Alignment kLeft = Qt::AlignLeft | Qt::AlignVCenter;
constexpr Qt::Alignment kRight = Qt::AlignRight | Qt::AlignVCenter;

constexpr std::array kColumns = {
    Column{"Day", &GrowthRow::day, kLeft}, Column{"Set", &GrowthRow::set, kRight},
    Column{"Number", &GrowthRow::field, kLeft}, Column{"From", &GrowthRow::from, kRight},
    Column{"To", &GrowthRow::to, kRight}};

const Column& ColumnOf(int section) { return kColumns.at(static_cast<std::size_t>(section)); }

}  // namespace

void GrowthRows::Show(const std::vector<GrowthRow>& rows) {
  if (rows == rows_) return;
  beginResetModel();
  rows_ = rows;
  endResetModel();
}

int GrowthRows::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int GrowthRows::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(kColumns.size());
}

QVariant GrowthRows::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const Column& column = ColumnOf(index.column());
  const QString text =
      QString::fromStdString(rows_.at(static_cast<std::size_t>(index.row())).*column.text);
  switch (role) {
    case Qt::DisplayRole:
      return text;
    case Qt::AccessibleTextRole:
      return column.name + QString(": ") + text;
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(column.alignment);
    default:
      return {};
  }
}

QVariant GrowthRows::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole) return QVariant::fromValue(ColumnOf(section).alignment);
  return role == Qt::DisplayRole ? QVariant(ColumnOf(section).name) : QVariant();
}

}  // namespace repvolta
