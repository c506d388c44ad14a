#pragma once

#include <QDialog>
#include <memory>
#include <optional>

#include "editing/EarlierVersions.h"

namespace Ui {
class RestoreVersionForm;
}

namespace repvolta {

class TextTable;

/// "Restore an Earlier Version": the kept versions of a workout, and what would change with the
/// selected one. It changes nothing; the chosen version is restored by who opened it.
class RestoreVersionForm : public QDialog {
  Q_OBJECT

 public:
  /// `versions` must outlive the form.
  explicit RestoreVersionForm(EarlierVersions& versions, QWidget* parent = nullptr);
  ~RestoreVersionForm() override;

  /// The version that is to be restored; nothing when the form was closed.
  const std::optional<ChosenVersion>& Chosen() const { return chosen_; }

 private:
  void Form_Load();
  void ListWorkouts();
  void WorkoutBox_Select();
  void ShowVersions(int selected);
  void VersionRow_Select(int row);
  void RestoreButton_Click();
  void ListAgain(const QString& why);
  void Tell(const QString& notice);
  std::size_t Workout() const;

  EarlierVersions& versions_;
  std::unique_ptr<Ui::RestoreVersionForm> ui_;
  TextTable* rows_;
  std::optional<ChosenVersion> chosen_;
};

}  // namespace repvolta
