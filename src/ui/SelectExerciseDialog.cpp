#include "ui/SelectExerciseDialog.h"

#include <QAccessible>
#include <QKeyEvent>
#include <utility>

#include "ui/EmptyListHint.h"
#include "ui/FindExercise.h"

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
  ui_->FindExerciseBox->installEventFilter(this);
  connect(ui_->FindExerciseBox, &QLineEdit::textEdited, this,
          &SelectExerciseDialog::FindExerciseBox_Change);
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
  ui_->FindExerciseBox->setFocus();
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
  ui_->FindExerciseBox->setEnabled(!typed);
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

void SelectExerciseDialog::FindExerciseBox_Change() {
  const QString text = ui_->FindExerciseBox->text();
  const std::optional<ExercisePlace> found = FindExercise(NamesOfAllTypes(), text);
  if (found) {
    ui_->ExerciseTypeList->setCurrentRow(found->type);
    ui_->ExerciseNameList->setCurrentRow(found->row);
    ui_->FoundLabel->setText(SelectedText(*ui_->ExerciseTypeList) + ": " +
                             SelectedText(*ui_->ExerciseNameList));
  } else {
    ui_->ExerciseNameList->clearSelection();
    ui_->FoundLabel->setText(text.trimmed().isEmpty()
                                 ? QString()
                                 : tr("In no list. Enter makes it a name of your own."));
  }
  QAccessibleEvent told(ui_->FoundLabel, QAccessible::Alert);
  QAccessible::updateAccessibility(&told);
}

/// What was typed into the search becomes the typed name, to be looked at once more.
void SelectExerciseDialog::TakeUnlistedName() {
  ui_->UserExerciseNameBox->setText(ui_->FindExerciseBox->text().trimmed());
  ui_->FoundLabel->clear();
  ui_->EnableUserName->setChecked(true);
}

/// Read once, since a list that cannot be read is told each time.
const std::vector<QStringList>& SelectExerciseDialog::NamesOfAllTypes() {
  if (!namesOfAllTypes_.empty()) return namesOfAllTypes_;
  for (int i = 0; i < ui_->ExerciseTypeList->count(); ++i) {
    QStringList names;
    for (const std::string& name :
         namesOfType_(ui_->ExerciseTypeList->item(i)->text().toStdString())) {
      names.append(QString::fromStdString(name));
    }
    namesOfAllTypes_.push_back(names);
  }
  return namesOfAllTypes_;
}

/// In the search, the arrow keys lead into the list of names, and Enter never gives no name.
bool SelectExerciseDialog::eventFilter(QObject* watched, QEvent* event) {
  if (watched == ui_->FindExerciseBox && event->type() == QEvent::KeyPress) {
    const int key = dynamic_cast<QKeyEvent*>(event)->key();
    const bool isFound = !SelectedText(*ui_->ExerciseNameList).isEmpty();
    const bool isTyped = !ui_->FindExerciseBox->text().trimmed().isEmpty();
    if ((key == Qt::Key_Return || key == Qt::Key_Enter) && isTyped && !isFound) {
      TakeUnlistedName();
      return true;
    }
    if (key == Qt::Key_Down && isFound) {
      ui_->ExerciseNameList->setFocus(Qt::OtherFocusReason);
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace repvolta
