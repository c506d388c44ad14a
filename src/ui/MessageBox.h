#pragma once

#include <QMessageBox>

namespace repvolta {

/// Replaces each lone carriage return by a line break.
QString WithLineBreaks(QString text);

/// A message box that shows its text as plain text.
class MessageBox : public QMessageBox {
  Q_OBJECT

 public:
  MessageBox(const QString& text, const QString& title, StandardButtons buttons,
             QWidget* parent = nullptr);

  /// A box with an OK button.
  static void Show(QWidget* parent, const QString& text, const QString& title);

  /// A box with OK and Cancel. Returns true for OK.
  static bool Confirm(QWidget* parent, const QString& text, const QString& title);
};

}  // namespace repvolta
