#pragma once

#include <QAbstractTableModel>
#include <QList>
#include <QString>
#include <QStringList>
#include <vector>

namespace repvolta {

/// A table of texts that are only read. Each column has a heading, which a screen reader says with
/// each cell.
class TextTable : public QAbstractTableModel {
  Q_OBJECT

 public:
  struct Row {
    QStringList cells;
    QString description;  // what a screen reader adds to a cell when it is asked for more
  };

  using QAbstractTableModel::QAbstractTableModel;

  void Fill(const QStringList& headings, const std::vector<Row>& rows);

  /// Figures stand at the right of these columns.
  void AlignRight(const QList<int>& columns) { rightColumns_ = columns; }

  /// Lets one row stand out, by an icon and bold letters, and in what is said of it: "now heard".
  /// -1 marks none.
  void MarkRow(int row, const QString& meaning);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QVariant Decoration(const QModelIndex& index, int role) const;
  QString HeardText(const QModelIndex& index) const;

  QStringList headings_;
  std::vector<Row> rows_;
  QList<int> rightColumns_;
  int marked_ = -1;
  QString meaning_;
};

}  // namespace repvolta
