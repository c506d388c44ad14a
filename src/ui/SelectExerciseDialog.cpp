#include "ui/SelectExerciseDialog.h"

#include <utility>

#include "ui/EmptyListHint.h"

#include "ui_SelectExerciseDialog.h"

namespace repvolta {
namespace {

// In characters of the dialog's font.
constexpr int kWidth = 80;
constexpr int kHeight = 24;

QString SelectedText(const QListWidget& list) {
  // The current row counts only when it is selected: a list makes its first row current on focus.
  const QList<QListWidgetItem*> selected = list.selectedItems();
  return selected.isEmpty() ? QString() : selected.first()->text();
}

}  // namespace

SelectExerciseDialog::SelectExerciseDialog(const std::vector<std::string>& types,
                                           NamesOfType namesOfType, QWidget* parent)
    : QDialog(parent),
      ui_(std::make_unique<Ui::SelectExerciseDialog>()),
      namesOfType_(std::move(namesOfType)) {
  ui_->setupUi(this);
  resize(kWidth * fontMetrics().averageCharWidth(), kHeight * fontMetrics().lineSpacing());
  new EmptyListHint(ui_->ExerciseTypeList,
                    tr("No exercise lists are installed: type a name below."));
  new EmptyListHint(ui_->ExerciseNameList, tr("Select an exercise type to see its names."));
  Form_Load(types);
  connect(ui_->ExerciseTypeList, &QListWidget::itemSelectionChanged, this,
          &SelectExerciseDialog::ExerciseTypeList_Click);
  connect(ui_->ExerciseNameList, &QListWidget::itemDoubleClicked, ui_->OKButton,
          &QPushButton::click);
  connect(ui_->EnableUserName, &QCheckBox::toggled, this,
          &SelectExerciseDialog::EnableUserName_Click);
  connect(ui_->OKButton, &QPushButton::clicked, this, &SelectExerciseDialog::OKButton_Click);
  connect(ui_->CancelButton, &QPushButton::clicked, this,
          &SelectExerciseDialog::CancelButton_Click);
}

SelectExerciseDialog::~SelectExerciseDialog() = default;

void SelectExerciseDialog::Form_Load(const std::vector<std::string>& types) {
  ui_->UserExerciseNameBox->clear();
  EnableUserName_Click();
  LoadExerciseTypes(types);
}

void SelectExerciseDialog::LoadExerciseTypes(const std::vector<std::string>& types) {
  ui_->ExerciseTypeList->clear();
  for (const std::string& type : types) {
    ui_->ExerciseTypeList->addItem(QString::fromStdString(type));
  }
}

void SelectExerciseDialog::ExerciseTypeList_Click() {
  ui_->ExerciseNameList->clear();
  const QString type = SelectedText(*ui_->ExerciseTypeList);
  if (type.isEmpty()) return;
  for (const std::string& name : namesOfType_(type.toStdString())) {
    ui_->ExerciseNameList->addItem(QString::fromStdString(name));
  }
}

void SelectExerciseDialog::EnableUserName_Click() {
  const bool typed = ui_->EnableUserName->isChecked();
  ui_->ExerciseTypeList->setEnabled(!typed);
  ui_->ExerciseNameList->setEnabled(!typed);
  ui_->UserExerciseNameBox->setEnabled(typed);
  if (typed) ui_->UserExerciseNameBox->setFocus();
}

void SelectExerciseDialog::OKButton_Click() {
  const QString name = ui_->EnableUserName->isChecked() ? ui_->UserExerciseNameBox->text()
                                                        : SelectedText(*ui_->ExerciseNameList);
  selectedName_ = name.toStdString();
  accept();
}

void SelectExerciseDialog::CancelButton_Click() {
  selectedName_.clear();
  reject();
}

}  // namespace repvolta
