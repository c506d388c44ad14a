#pragma once

#include <QObject>
#include <array>

#include "ui/RowList.h"

namespace repvolta {

/// Joins the seven lists of sets into one table: they scroll and select together, and the left and
/// right keys move between them.
class SetTable : public QObject {
 public:
  using Lists = std::array<RowList*, 7>;
  using Columns = std::array<QStringList, 7>;

  SetTable(const Lists& lists, QObject* parent);

  /// Replaces all rows and selects none.
  void SetRows(const Columns& columns);

  int SelectedRow() const { return lists_.front()->SelectedRow(); }
  void SelectRow(int row);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MoveFocus(QObject* from, int step);

  Lists lists_;
  bool selecting_ = false;
};

}  // namespace repvolta
