#pragma once

#include <QListWidget>
#include <QStringList>
#include <string>
#include <vector>

namespace repvolta {

QStringList QtTexts(const std::vector<std::string>& texts);

/// A list of which one row can be selected. A row that only became current, as on focus, is not
/// selected. Enter never leaves the list: it does what a double click does.
class RowList : public QListWidget {
  Q_OBJECT
  Q_PROPERTY(QString hint READ Hint WRITE SetHint)
  Q_PROPERTY(int visibleRows READ VisibleRows WRITE SetVisibleRows)
  Q_PROPERTY(int visibleCharacters READ VisibleCharacters WRITE SetVisibleCharacters)

 public:
  explicit RowList(QWidget* parent = nullptr);

  /// What the empty list says.
  QString Hint() const { return accessibleDescription(); }
  void SetHint(const QString& hint);

  // The height and the width that the list would like to have.
  int VisibleRows() const { return visibleRows_; }
  void SetVisibleRows(int rows);
  int VisibleCharacters() const { return visibleCharacters_; }
  void SetVisibleCharacters(int characters);

  int SelectedRow() const;  // -1: none
  void SelectRow(int row);  // a row that is not there: none

  /// Replaces all rows, none of which is selected then. The list keeps its scroll position.
  void SetRows(const QStringList& rows);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 signals:
  void RowSelected(int row);
  void RowChosen(int row);  // Enter or a double click on the selected row

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void EmitChosen();
  QSize SizeOf(int characters, int rows) const;

  QObject* hint_ = nullptr;
  int visibleRows_ = 3;
  int visibleCharacters_ = 9;
};

/// Keeps the selection while a list is filled anew: when it goes, the row with the text that was
/// selected is selected again, the same one where it has that text; none when the text is gone.
class KeptRow {
 public:
  explicit KeptRow(RowList& list);
  ~KeptRow();
  KeptRow(const KeptRow&) = delete;
  KeptRow& operator=(const KeptRow&) = delete;

 private:
  int RowOfText() const;

  RowList& list_;
  const int row_;
  const QString text_;
};

}  // namespace repvolta
