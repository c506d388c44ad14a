#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class InputBox;
}

namespace repvolta {

/// Asks for one line of text. The prompt is plain text; a carriage return is a line break.
class InputBox : public QDialog {
  Q_OBJECT

 public:
  /// The box opens with `initial` as the selected answer.
  InputBox(const QString& prompt, const QString& title, const QString& initial,
           QWidget* parent = nullptr);
  ~InputBox() override;

  QString Answer() const;

  /// Shows a box and returns its answer; empty when it was cancelled.
  static QString Ask(QWidget* parent, const QString& prompt, const QString& title,
                     const QString& initial = {});

 private:
  std::unique_ptr<Ui::InputBox> ui_;
};

}  // namespace repvolta
