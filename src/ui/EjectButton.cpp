#include "ui/EjectButton.h"

#include <utility>

namespace repvolta {

EjectButton::EjectButton(QWidget* parent) : QPushButton(parent) {
  connect(this, &QPushButton::clicked, this, &EjectButton::Eject);
}

void EjectButton::Use(Disks& disks, std::function<std::string()> outputPath) {
  disks_ = &disks;
  outputPath_ = std::move(outputPath);
}

void EjectButton::UpdateBegins() {
  isUpdating_ = true;
  Look();
}

void EjectButton::UpdateEnds() {
  if (std::exchange(isUpdating_, false)) Look();
}

void EjectButton::Look() {
  if (!disks_) return;
  Q_EMIT Said({});
  setEnabled(false);
  folder_ = outputPath_();
  disks_->Ask(folder_, [this](const Ejection& found) { ShowEjection(found); });
}

void EjectButton::ShowEjection(const Ejection& ejection) {
  disk_ = QString::fromStdString(ejection.disk);
  setVisible(ejection.state != Ejection::State::kNone);
  if (ejection.state == Ejection::State::kRefused) {
    Grey(QString::fromStdString(ejection.reason));
  } else if (isUpdating_) {
    Grey(tr("The update still writes to %1.").arg(disk_));
  } else {
    Describe(tr("Make %1 ready to be unplugged").arg(disk_));
    setEnabled(true);
  }
}

void EjectButton::Eject() {
  Grey(tr("%1 is being ejected.").arg(disk_));
  Q_EMIT Said(tr("%1 is being ejected. Do not unplug it yet.").arg(disk_));
  disks_->Eject(folder_,
                [this](const std::string& failure) { ShowEnd(QString::fromStdString(failure)); });
}

void EjectButton::ShowEnd(const QString& failure) {
  if (failure.isEmpty()) {
    Grey(tr("%1 can be unplugged now.").arg(disk_));
    Q_EMIT Said(tr("%1 can be unplugged now.").arg(disk_));
  } else {
    Describe(tr("Make %1 ready to be unplugged").arg(disk_));
    setEnabled(true);
    Q_EMIT Said(failure);
  }
}

void EjectButton::Describe(const QString& text) {
  setToolTip(text);
  setAccessibleDescription(text);
}

void EjectButton::Grey(const QString& reason) {
  Describe(reason);
  setEnabled(false);
}

}  // namespace repvolta
