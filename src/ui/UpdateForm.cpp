#include "ui/UpdateForm.h"

#include <QAccessible>
#include <QFile>
#include <QFileInfo>
#include <utility>

#include "ui/LineList.h"
#include "ui/ProblemLines.h"
#include "ui/ShowAbove.h"

#include "ui_UpdateForm.h"

namespace repvolta {
namespace {

// In characters of the window's font.
constexpr int kWidth = 90;
constexpr int kHeight = 28;

bool IsFolder(const std::string& path) {
  return QFileInfo(QFile::decodeName(path.c_str())).isDir();
}

}  // namespace

UpdateForm::UpdateForm() : ui_(std::make_unique<Ui::UpdateForm>()) {
  ui_->setupUi(this);
  resize(kWidth * fontMetrics().averageCharWidth(), kHeight * fontMetrics().lineSpacing());
  // An icon must not make its row higher than the others.
  const int iconSize = fontMetrics().height();
  ui_->UpdateList->setIconSize({iconSize, iconSize});
  ui_->UpdateList->setItemDelegate(new ProblemLines(ui_->UpdateList));
  OfferCopy(*ui_->UpdateList);
  ShowProblems();
  connect(ui_->NextErrorButton, &QPushButton::clicked, this,
          [this] { SelectNext(*ui_->UpdateList, LineKind::kError); });
  connect(ui_->NextWarningButton, &QPushButton::clicked, this,
          [this] { SelectNext(*ui_->UpdateList, LineKind::kWarning); });
  connect(ui_->OpenFolderButton, &QPushButton::clicked, this, &UpdateForm::OpenFolderButton_Click);
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
  HideOutcome();
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
  ShowWholeInToolTip(*item);
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

void UpdateForm::ShowOutcome(const OutcomeTexts& outcome) {
  ui_->OutcomeLabel->setText(QString::fromStdString(outcome.text));
  ui_->OutcomeLabel->show();
  ui_->NextErrorButton->setVisible(problems_.Errors() > 0);
  ui_->NextWarningButton->setVisible(problems_.Warnings() > 0);
  ui_->PlayerHintLabel->setText(QString::fromStdString(outcome.hint));
  ui_->PlayerHintLabel->setVisible(!outcome.hint.empty());
  folder_ = outcome.folder;
  ui_->OpenFolderButton->show();
  ui_->OpenFolderButton->setEnabled(IsFolder(folder_));
  for (QLabel* label : {ui_->OutcomeLabel, ui_->PlayerHintLabel}) {
    if (label->isHidden()) continue;
    QAccessibleEvent told(label, QAccessible::Alert);
    QAccessible::updateAccessibility(&told);
  }
}

void UpdateForm::HideOutcome() {
  for (QWidget* part : std::initializer_list<QWidget*>{ui_->OutcomeLabel, ui_->NextErrorButton,
                                                       ui_->NextWarningButton, ui_->PlayerHintLabel,
                                                       ui_->OpenFolderButton}) {
    part->hide();
  }
}

void UpdateForm::ShowAgain() { ShowAbove(*this, owner_); }

/// The player may have been unplugged meanwhile.
void UpdateForm::OpenFolderButton_Click() {
  const bool isThere = IsFolder(folder_);
  ui_->OpenFolderButton->setEnabled(isThere);
  if (isThere) openFolder_(folder_);
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
