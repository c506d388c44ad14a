#pragma once

#include <QDialog>
#include <memory>

#include "editing/AnswerHelp.h"

namespace Ui {
class InputBox;
}

namespace repvolta {

/// Asks for one line of text. The prompt is plain text; a carriage return is a line break. Below
/// the field stands what is asked for, and what will be kept of what is typed; a screen reader
/// hears both as the description of the field.
class InputBox : public QDialog {
  Q_OBJECT

 public:
  /// The box opens with `initial` as the selected answer.
  InputBox(const QString& prompt, const QString& title, AnswerHelp help,
           const QString& initial = {}, QWidget* parent = nullptr);
  ~InputBox() override;

  QString Answer() const;

  /// Shows a box and returns its answer; empty when it was cancelled.
  static QString Ask(QWidget* parent, const QString& prompt, const QString& title,
                     const AnswerHelp& help = {}, const QString& initial = {});

 private:
  void AnswerBox_Change();

  std::unique_ptr<Ui::InputBox> ui_;
  AnswerHelp help_;
};

}  // namespace repvolta
