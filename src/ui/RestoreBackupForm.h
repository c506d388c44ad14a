#pragma once

#include <QDialog>
#include <memory>
#include <vector>

#include "editing/RestoreQuestion.h"

namespace Ui {
class RestoreBackupForm;
}

namespace repvolta {

/// Shows what a restore would do, and asks where folders of another computer are on this one.
/// Accepted, it is to be done.
class RestoreBackupForm : public QDialog {
  Q_OBJECT

 public:
  explicit RestoreBackupForm(const RestoreQuestion& question, QWidget* parent = nullptr);
  ~RestoreBackupForm() override;

  /// Those in which the person has said, or left, where a folder is.
  std::vector<PathExchange> Exchanges() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void ShowExchanges();
  void ShowPlan();
  void TakeSize();

  const RestoreQuestion question_;
  std::unique_ptr<Ui::RestoreBackupForm> ui_;
};

}  // namespace repvolta
