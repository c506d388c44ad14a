#include "ui/UpdateForm.h"

#include <QAccessible>
#include <utility>

#include "ui/ProblemLines.h"
#include "ui/ShowAbove.h"

#include "ui_UpdateForm.h"

namespace repvolta {
namespace {

// In characters of the window's font.
constexpr int kWidth = 90;
constexpr int kHeight = 28;

}  // namespace

UpdateForm::UpdateForm() : ui_(std::make_unique<Ui::UpdateForm>()) {
  ui_->setupUi(this);
  resize(kWidth * fontMetrics().averageCharWidth(), kHeight * fontMetrics().lineSpacing());
  // An icon must not make its row higher than the others.
  const int iconSize = fontMetrics().height();
  ui_->UpdateList->setIconSize({iconSize, iconSize});
  ui_->UpdateList->setItemDelegate(new ProblemLines(ui_->UpdateList));
  ShowProblems();
  connect(ui_->UpdateOKbutton, &QPushButton::clicked, this, &UpdateForm::UpdateOKbutton_Click);
  connect(ui_->EjectButton, &EjectButton::Said, this, &UpdateForm::ShowEjection);
  connect(ui_->StopButton, &QPushButton::clicked, this, &UpdateForm::StopButton_Click);
}

UpdateForm::~UpdateForm() = default;

void UpdateForm::OfferEject(Disks& disks, std::function<std::string()> outputPath) {
  ui_->EjectButton->Use(disks, std::move(outputPath));
}

void UpdateForm::Show() {
  ui_->UpdateList->clear();
  ui_->EjectButton->UpdateBegins();
  problems_ = {};
  ShowProblems();
  isStopping_ = false;
  ui_->StopButton->setEnabled(true);
  ShowAbove(*this, owner_);
}

void UpdateForm::UpdateEnds() {
  ui_->StopButton->setEnabled(false);
  ui_->FileLabel->SetWholeText("");
  ui_->TimeLeftLabel->clear();
  ui_->EjectButton->UpdateEnds();
}

void UpdateForm::ShowProgress(const Progress& progress) {
  ui_->UpdateProgressBar->setValue(progress.percent);
  ui_->TimeLeftLabel->setText(QString::fromStdString(TimeLeftText(progress)));
  if (!isStopping_) ui_->FileLabel->SetWholeText(QString::fromStdString(progress.atHand));
}

void UpdateForm::AddLine(std::string_view line) {
  auto* item = new QListWidgetItem(
      QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size())), ui_->UpdateList);
  MarkProblem(*item, KindOfLine(line));
  problems_.Add(KindOfLine(line));
  ShowProblems();
  // The update goes on without returning to the event loop, so the line is painted at once.
  repaint();
  ui_->UpdateList->viewport()->repaint();
}

void UpdateForm::ShowProblems() {
  const std::string text = problems_.Text();
  ui_->ProblemsLabel->setText(QString::fromStdString(text));
  ui_->ProblemsLabel->setVisible(!text.empty());
}

void UpdateForm::UpdateOKbutton_Click() { hide(); }

void UpdateForm::ShowEjection(const QString& line) {
  ui_->EjectLabel->setText(line);
  ui_->EjectLabel->setVisible(!line.isEmpty());
  if (line.isEmpty()) return;
  QAccessibleEvent heard(ui_->EjectLabel, QAccessible::Alert);
  QAccessible::updateAccessibility(&heard);
}

void UpdateForm::StopButton_Click() {
  isStopping_ = true;
  ui_->StopButton->setEnabled(false);
  ui_->FileLabel->SetWholeText("Stopping ...");
  stop_();
}

}  // namespace repvolta
