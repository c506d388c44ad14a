#include "ui/AboutForm.h"

#include "base/Product.h"
#include "ui/MessageBox.h"

#include "ui_AboutForm.h"

namespace repvolta {
namespace {

// The slips in this text are quirk 121.
constexpr const char* kDescription =
    "All Rights Resvered\n"
    "Copyright (C) 2007 the makers of Repvolta\n"
    "Patent Pending\n"
    "Repvolta uses the LAME encoding technology, https://lame.sourceforge.io/";

}  // namespace

AboutForm::AboutForm(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::AboutForm>()) {
  ui_->setupUi(this);
  Form_Load();
  connect(ui_->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
  connect(ui_->cmdSysInfo, &QPushButton::clicked, this, &AboutForm::cmdSysInfo_Click);
}

AboutForm::~AboutForm() = default;

void AboutForm::Form_Load() {
  const QString product = QString::fromUtf8(kProductName.data(), kProductName.size());
  setWindowTitle("About " + product);
  ui_->lblTitle->setText(product);
  QFont large = ui_->lblTitle->font();
  large.setPointSizeF(large.pointSizeF() * 1.6);
  large.setBold(true);
  ui_->lblTitle->setFont(large);
  ui_->lblVersion->setText("Version 1.0  - 25th March 07");
  ui_->lblDescription->setText(kDescription);
  const int side = 4 * fontMetrics().height();
  ui_->picIcon->setPixmap(windowIcon().pixmap(side, side));
}

void AboutForm::cmdSysInfo_Click() {
  MessageBox::Show(this, "System Information Is Unavailable At This Time", windowTitle());
}

}  // namespace repvolta
