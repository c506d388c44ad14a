#pragma once

#include <QObject>
#include <array>

#include "ui/RowList.h"

namespace repvolta {

/// Makes the seven lists of sets one table: they scroll and select together, and the left and right
/// keys go from one to the next.
class SetTable : public QObject {
 public:
  using Lists = std::array<RowList*, 7>;
  using Columns = std::array<QStringList, 7>;

  SetTable(const Lists& lists, QObject* parent);

  /// Replaces all rows, none of which is selected then.
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
