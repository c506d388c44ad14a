#pragma once

#include <QTableView>
#include <initializer_list>

namespace repvolta {

/// A table of which one row is selected, the current one. Enter or a double click chooses it; Enter
/// is never passed on to the dialog, and Tab leaves the table.
class RowTable : public QTableView {
  Q_OBJECT

 public:
  explicit RowTable(QWidget* parent = nullptr);

  /// The number of rows for which there is room at least.
  void SetFewestRows(int rows);

  /// The column takes the room that the others leave; the other columns are as wide as their texts.
  void StretchColumns(std::initializer_list<int> columns);

  int SelectedRow() const { return currentIndex().row(); }
  void SelectRow(int row);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void RowSelected(int row);
  void RowChosen(int row);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  QSize SizeOf(int rows) const;

  int fewestRows_ = 3;
};

}  // namespace repvolta
