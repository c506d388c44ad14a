#include "ui/UpdateForm.h"

#include <QAccessible>
#include <utility>

#include "ui/ShowAbove.h"

#include "ui_UpdateForm.h"

namespace repvolta {
namespace {

// In characters of the window's font.
constexpr int kWidth = 90;
constexpr int kHeight = 24;

constexpr std::string_view kUpdateComplete = "UPDATE COMPLETE.";

}  // namespace

UpdateForm::UpdateForm() : ui_(std::make_unique<Ui::UpdateForm>()) {
  ui_->setupUi(this);
  resize(kWidth * fontMetrics().averageCharWidth(), kHeight * fontMetrics().lineSpacing());
  connect(ui_->UpdateOKbutton, &QPushButton::clicked, this, &UpdateForm::UpdateOKbutton_Click);
  connect(ui_->EjectButton, &EjectButton::Said, this, &UpdateForm::ShowEjection);
}

UpdateForm::~UpdateForm() = default;

void UpdateForm::OfferEject(Disks& disks, std::function<std::string()> outputPath) {
  ui_->EjectButton->Use(disks, std::move(outputPath));
}

void UpdateForm::Show() {
  ui_->UpdateList->clear();
  ui_->EjectButton->UpdateBegins();
  ShowAbove(*this, owner_);
}

void UpdateForm::AddLine(std::string_view line) {
  ui_->UpdateList->addItem(QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size())));
  if (line == kUpdateComplete) ui_->EjectButton->UpdateEnds();
  // The update goes on without returning to the event loop, so the line is painted at once.
  repaint();
  ui_->UpdateList->viewport()->repaint();
}

void UpdateForm::UpdateOKbutton_Click() { hide(); }

void UpdateForm::ShowEjection(const QString& line) {
  ui_->EjectLabel->setText(line);
  ui_->EjectLabel->setVisible(!line.isEmpty());
  if (line.isEmpty()) return;
  QAccessibleEvent heard(ui_->EjectLabel, QAccessible::Alert);
  QAccessible::updateAccessibility(&heard);
}

}  // namespace repvolta
