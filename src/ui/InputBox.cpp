#include "ui/InputBox.h"

#include "ui/MessageBox.h"

#include "ui_InputBox.h"

namespace repvolta {
namespace {

constexpr int kWidth = 56;  // characters of the box's font

}  // namespace

InputBox::InputBox(const QString& prompt, const QString& title, const QString& initial,
                   QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::InputBox>()) {
  ui_->setupUi(this);
  setWindowTitle(title);
  ui_->PromptLabel->setText(WithLineBreaks(prompt));
  ui_->AnswerBox->setAccessibleName(prompt);
  ui_->AnswerBox->setText(initial);
  ui_->AnswerBox->setFocus();
  ui_->AnswerBox->selectAll();
  ui_->AnswerBox->setMinimumWidth(kWidth * fontMetrics().averageCharWidth());
  connect(ui_->OKButton, &QPushButton::clicked, this, &QDialog::accept);
  connect(ui_->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

InputBox::~InputBox() = default;

QString InputBox::Answer() const { return ui_->AnswerBox->text(); }

QString InputBox::Ask(QWidget* parent, const QString& prompt, const QString& title,
                      const QString& initial) {
  InputBox box(prompt, title, initial, parent);
  return box.exec() == QDialog::Accepted ? box.Answer() : QString();
}

}  // namespace repvolta
