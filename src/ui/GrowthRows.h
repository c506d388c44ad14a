#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "editing/GrowthAheadView.h"

namespace repvolta {

/// The table of growth ahead: a row for each growth. Screen readers say each cell with its column.
class GrowthRows : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  /// Rows that are the same as before keep their selection.
  void Show(const std::vector<GrowthRow>& rows);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  std::vector<GrowthRow> rows_;
};

}  // namespace repvolta
