#pragma once

#include <QListWidget>
#include <QStringList>
#include <string>
#include <vector>

namespace repvolta {

QStringList QtTexts(const std::vector<std::string>& texts);

/// A list with at most one selected row. A row that only became current, for example on focus, is
/// not selected. Enter acts like a double click and is never passed on to the dialog. A frame shows
/// the focus.
class RowList : public QListWidget {
  Q_OBJECT
  Q_PROPERTY(QString hint READ Hint WRITE SetHint)
  Q_PROPERTY(int visibleRows READ VisibleRows WRITE SetVisibleRows)
  Q_PROPERTY(int visibleCharacters READ VisibleCharacters WRITE SetVisibleCharacters)

 public:
  explicit RowList(QWidget* parent = nullptr);

  /// The text that the empty list shows.
  QString Hint() const { return accessibleDescription(); }
  void SetHint(const QString& hint);

  // The preferred height and width of the list.
  int VisibleRows() const { return visibleRows_; }
  void SetVisibleRows(int rows);
  int VisibleCharacters() const { return visibleCharacters_; }
  void SetVisibleCharacters(int characters);

  int SelectedRow() const;  // -1: none
  void SelectRow(int row);  // a row that does not exist: none

  /// Replaces all rows and selects none. The list keeps its scroll position.
  void SetRows(const QStringList& rows);

  /// Adds a remark to the tool tip of a row and to what a screen reader says of it; "" removes it.
  void SetRemark(int row, const QString& remark);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void RowSelected(int row);
  void RowChosen(int row);  // Enter or a double click on the selected row

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  void EmitChosen();
  QSize SizeOf(int characters, int rows) const;
  QString ToolTipOf(const QString& text, const QString& remark) const;

  QObject* hint_ = nullptr;
  int visibleRows_ = 3;
  int visibleCharacters_ = 9;
};

/// Keeps the selection while a list is refilled. The destructor selects the row with the text that
/// was selected before: the same row if it still has that text, none if no row has.
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
