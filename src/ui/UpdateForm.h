#pragma once

#include <QDialog>
#include <QPointer>
#include <functional>
#include <memory>
#include <string>

#include "app/ProblemCount.h"
#include "editing/ProgressWindows.h"
#include "platform/Disks.h"

namespace Ui {
class UpdateForm;
}

namespace repvolta {

/// Shows the progress of an update, line by line. It does not block the other windows; closing it
/// only hides it.
class UpdateForm : public QDialog, public ProgressWindow {
  Q_OBJECT

 public:
  UpdateForm();
  ~UpdateForm() override;

  /// The form stays above this window.
  void SetOwner(QWidget* owner) { owner_ = owner; }

  /// After an update the form offers to eject the removable disk that then holds `outputPath`.
  void OfferEject(Disks& disks, std::function<std::string()> outputPath);

  void Show() override;
  void Hide() override { hide(); }
  void UpdateEnds() override;
  void ShowOutcome(const OutcomeTexts& outcome) override;
  void ShowAgain() override;
  void OnOpenFolder(std::function<void(const std::string&)> open) override {
    openFolder_ = std::move(open);
  }
  void OnStop(std::function<void()> stop) override { stop_ = std::move(stop); }
  void ShowProgress(const Progress& progress) override;
  void AddLine(std::string_view line) override;

 private:
  void UpdateOKbutton_Click();
  void ShowEjection(const QString& line);
  void StopButton_Click();
  void ShowProblems();
  void HideOutcome();
  void OpenFolderButton_Click();

  std::unique_ptr<Ui::UpdateForm> ui_;
  QPointer<QWidget> owner_;
  std::function<void()> stop_ = [] {};
  std::function<void(const std::string&)> openFolder_ = [](const std::string&) {};
  std::string folder_;  // of the last update
  bool isStopping_ = false;
  ProblemCount problems_;
};

}  // namespace repvolta
