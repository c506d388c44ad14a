#pragma once

#include <QPushButton>
#include <functional>
#include <string>

#include "platform/Disks.h"

namespace repvolta {

/// Ejects the removable disk to which an update has written. It is hidden when there is none, and
/// greyed while it cannot be used; its tool tip then says why.
class EjectButton : public QPushButton {
  Q_OBJECT

 public:
  explicit EjectButton(QWidget* parent = nullptr);

  /// Until this call the button stays hidden. `disks` must outlive the button.
  void Use(Disks& disks, std::function<std::string()> outputPath);

  void UpdateBegins();

  /// Does nothing unless an update has begun.
  void UpdateEnds();

 Q_SIGNALS:
  /// How the ejection goes, as a sentence; empty when there is nothing to say any more.
  void Said(const QString& line);

 private:
  void Look();
  void ShowEjection(const Ejection& ejection);
  void Eject();
  void ShowEnd(const QString& failure);
  void Describe(const QString& text);
  void Grey(const QString& reason);

  Disks* disks_ = nullptr;
  std::function<std::string()> outputPath_;
  std::string folder_;  // that the ejection is about
  QString disk_;
  bool isUpdating_ = false;
};

}  // namespace repvolta
