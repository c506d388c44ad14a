#pragma once

#include <QDialog>
#include <QStringList>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace Ui {
class SelectExerciseDialog;
}

namespace repvolta {

/// Chooses an exercise name from the lists of the exercise types, where a search leads to it, or
/// takes one typed in.
class SelectExerciseDialog : public QDialog {
  Q_OBJECT

 public:
  /// Returns the exercise names of a type.
  using NamesOfType = std::function<std::vector<std::string>(const std::string& type)>;

  SelectExerciseDialog(const std::vector<std::string>& types, NamesOfType namesOfType,
                       QWidget* parent = nullptr);
  ~SelectExerciseDialog() override;

  /// The chosen name after OK; empty, for no exercise, otherwise.
  std::string SelectedName() const { return selectedName_; }

 private:
  void Form_Load(const std::vector<std::string>& types);
  void LoadExerciseTypes(const std::vector<std::string>& types);
  void ExerciseTypeList_Click();
  void EnableUserName_Click();
  void OKButton_Click();
  void CancelButton_Click();

  void FindExerciseBox_Change();
  void TakeUnlistedName();
  const std::vector<QStringList>& NamesOfAllTypes();
  bool eventFilter(QObject* watched, QEvent* event) override;

  std::unique_ptr<Ui::SelectExerciseDialog> ui_;
  NamesOfType namesOfType_;
  std::vector<QStringList> namesOfAllTypes_;
  std::string selectedName_;
};

}  // namespace repvolta
