#include "ui/UpdateForm.h"

#include "ui/ShowAbove.h"

#include "ui_UpdateForm.h"

namespace repvolta {
namespace {

// In characters of the window's font.
constexpr int kWidth = 90;
constexpr int kHeight = 24;

}  // namespace

UpdateForm::UpdateForm() : ui_(std::make_unique<Ui::UpdateForm>()) {
  ui_->setupUi(this);
  resize(kWidth * fontMetrics().averageCharWidth(), kHeight * fontMetrics().lineSpacing());
  connect(ui_->UpdateOKbutton, &QPushButton::clicked, this, &UpdateForm::UpdateOKbutton_Click);
}

UpdateForm::~UpdateForm() = default;

void UpdateForm::Show() {
  ui_->UpdateList->clear();
  ShowAbove(*this, owner_);
}

void UpdateForm::AddLine(std::string_view line) {
  ui_->UpdateList->addItem(QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size())));
  // The update goes on without returning to the event loop, so the line is painted at once.
  repaint();
  ui_->UpdateList->viewport()->repaint();
}

void UpdateForm::UpdateOKbutton_Click() { hide(); }

}  // namespace repvolta
