#include "ui/InputBox.h"

#include <utility>

#include "ui/MessageBox.h"

#include "ui_InputBox.h"

namespace repvolta {
namespace {

constexpr int kWidth = 56;  // characters of the box's font
constexpr int kKeptLines = 2;

/// Lets a label break a long word, which would otherwise widen the box beyond the screen.
QString Breakable(const QString& text) {
  constexpr int kLongestPart = 24;
  constexpr QChar kZeroWidthSpace(0x200B);
  QString breakable;
  int part = 0;
  for (const QChar letter : text) {
    part = letter.isSpace() ? 0 : part + 1;
    if (part > kLongestPart && !letter.isLowSurrogate()) {
      breakable += kZeroWidthSpace;
      part = 1;
    }
    breakable += letter;
  }
  return breakable;
}

}  // namespace

InputBox::InputBox(const QString& prompt, const QString& title, AnswerHelp help,
                   const QString& initial, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::InputBox>()), help_(std::move(help)) {
  ui_->setupUi(this);
  setWindowTitle(title);
  ui_->PromptLabel->setText(WithLineBreaks(prompt));
  ui_->AnswerBox->setAccessibleName(prompt);
  ui_->AnswerBox->setText(initial);
  ui_->AnswerBox->setFocus();
  ui_->AnswerBox->selectAll();
  ui_->AnswerBox->setMinimumWidth(kWidth * fontMetrics().averageCharWidth());
  ui_->NowLabel->setText(Breakable(QString::fromStdString(help_.now)));
  ui_->NowLabel->setVisible(!help_.now.empty());
  // The box must not grow while somebody types.
  ui_->KeptLabel->setMinimumHeight(kKeptLines * fontMetrics().lineSpacing());
  AnswerBox_Change();
  connect(ui_->AnswerBox, &QLineEdit::textChanged, this, &InputBox::AnswerBox_Change);
  connect(ui_->OKButton, &QPushButton::clicked, this, &QDialog::accept);
  connect(ui_->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

InputBox::~InputBox() = default;

void InputBox::AnswerBox_Change() {
  const QString kept = QString::fromStdString(help_.kept(Answer().toStdString()));
  ui_->KeptLabel->setText(Breakable(kept));
  ui_->AnswerBox->setAccessibleDescription(QString::fromStdString(help_.now) + " " + kept);
}

QString InputBox::Answer() const { return ui_->AnswerBox->text(); }

QString InputBox::Ask(QWidget* parent, const QString& prompt, const QString& title,
                      const AnswerHelp& help, const QString& initial) {
  InputBox box(prompt, title, help, initial, parent);
  return box.exec() == QDialog::Accepted ? box.Answer() : QString();
}

}  // namespace repvolta
