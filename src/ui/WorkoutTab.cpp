#include "ui/WorkoutTab.h"

#include <QAccessible>
#include <QScrollBar>

#include "app/WorkoutDamage.h"
#include "editing/ExerciseEditing.h"
#include "editing/MissingFiles.h"
#include "editing/ScreenTexts.h"
#include "editing/WorkoutEditing.h"
#include "ui/Keys.h"

#include "ui_WorkoutTab.h"

namespace repvolta {

WorkoutTab::WorkoutTab(Editor& editor, Handlers& handlers)
    : editor_(editor), handlers_(handlers), ui_(std::make_unique<Ui::WorkoutTab>()) {
  ui_->setupUi(this);
  ConnectWorkouts();
  ConnectExercises();
  ConnectLists();
  ui_->WorkoutFileLabel->hide();
}

WorkoutTab::~WorkoutTab() = default;

void WorkoutTab::ConnectWorkouts() {
  handlers_.OnClick(ui_->CreateNewWorkoutButton, "The workout could not be created.",
                    [this] { CreateNewWorkoutButton_Click(editor_); });
  handlers_.OnClick(ui_->DeleteSelectedWorkoutButton, "The workout could not be deleted.",
                    [this] { DeleteSelectedWorkoutButton_Click(editor_); });
  AddWindowKey(this, QKeySequence::New, ui_->CreateNewWorkoutButton);

  // A choice by hand emits `activated`, even for the entry that was already chosen. An assistive
  // tool may only change the current entry; that choice counts as soon as events run.
  connect(ui_->WorkoutDropBox, &QComboBox::activated, this, [this] { ChooseWorkout(); });
  connect(ui_->WorkoutDropBox, &QComboBox::currentIndexChanged, this, [this] {
    if (editor_.State().ScreenUpdating) return;
    choicePending_ = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
          if (choicePending_) ChooseWorkout();
        },
        Qt::QueuedConnection);
  });
}

void WorkoutTab::ConnectExercises() {
  handlers_.OnClick(ui_->AddExerciseButton, "The exercise could not be added.",
                    [this] { AddExerciseButton_Click(editor_); });
  handlers_.OnClick(ui_->EditExerciseNameButton, "The exercise could not be renamed.",
                    [this] { EditExerciseNameButton_Click(editor_, SelectedExercise()); });
  handlers_.OnClick(ui_->RemoveExerciseButton, "The exercise could not be removed.",
                    [this] { RemoveExerciseButton_Click(editor_, SelectedExercise()); });
  handlers_.OnClick(ui_->MoveUpExerciseListButton, "The exercise could not be moved.",
                    [this] { MoveUpExerciseListButton_Click(editor_, SelectedExercise()); });
  AddKey(ui_->ExerciseListFrame, Qt::Key_Insert, ui_->AddExerciseButton);
  AddKey(ui_->ExerciseListFrame, Qt::Key_F2, ui_->EditExerciseNameButton);
  AddKey(ui_->ExerciseListFrame, Qt::Key_Delete, ui_->RemoveExerciseButton);
  AddKey(ui_->ExerciseListFrame, Qt::ALT | Qt::Key_Up, ui_->MoveUpExerciseListButton);
}

void WorkoutTab::ConnectLists() {
  RowList* names = ui_->ExerciseList;
  RowList* summary = ui_->ExerciseSummaryList;
  connect(names, &RowList::RowSelected, this, &WorkoutTab::ExerciseList_Click);
  connect(summary, &RowList::RowSelected, names, [this, names](int row) {
    if (!editor_.State().ScreenUpdating && row != names->SelectedRow()) names->SelectRow(row);
  });
  connect(names, &RowList::RowChosen, this, &WorkoutTab::ExerciseOpened);
  connect(summary, &RowList::RowChosen, this, &WorkoutTab::ExerciseOpened);
  connect(names->verticalScrollBar(), &QScrollBar::valueChanged, summary->verticalScrollBar(),
          &QScrollBar::setValue);
  connect(summary->verticalScrollBar(), &QScrollBar::valueChanged, names->verticalScrollBar(),
          &QScrollBar::setValue);
}

void WorkoutTab::ExerciseList_Click(int row) {
  if (editor_.State().ScreenUpdating || row == ui_->ExerciseSummaryList->SelectedRow()) return;
  ui_->ExerciseSummaryList->SelectRow(row);
}

void WorkoutTab::ChooseWorkout() {
  choicePending_ = false;
  const std::string name = ui_->WorkoutDropBox->currentText().toStdString();
  // The workout that is being left need not be reloaded first: the box already shows the choice.
  handlers_.RunApart("The workout cannot be shown as a whole.",
                     [&] { WorkoutDropBox_Click(editor_, name); });
}

void WorkoutTab::ShowWorkoutNames() {
  const ScreenUpdate updating = editor_.program.BeginScreenUpdate();
  const QStringList names = QtTexts(editor_.State().WorkoutNames);
  ui_->WorkoutDropBox->clear();
  ui_->WorkoutDropBox->addItems(names);
  ui_->WorkoutDropBox->setPlaceholderText(names.isEmpty() ? "No workouts yet: create one."
                                                          : "Choose a workout.");
  ui_->WorkoutDropBox->setCurrentIndex(-1);
}

void WorkoutTab::SelectWorkout(int index) {
  const ScreenUpdate updating = editor_.program.BeginScreenUpdate();
  ui_->WorkoutDropBox->setCurrentIndex(index);
}

int WorkoutTab::SelectedWorkout() const { return ui_->WorkoutDropBox->currentIndex(); }

int WorkoutTab::SelectedExercise() const { return ui_->ExerciseList->SelectedRow(); }

void WorkoutTab::SelectExercise(int row) {
  const ScreenUpdate updating = editor_.program.BeginScreenUpdate();
  ui_->ExerciseList->SelectRow(row);
  ui_->ExerciseSummaryList->SelectRow(row);
}

KeptRow WorkoutTab::KeepSelection() { return KeptRow(*ui_->ExerciseList); }

void WorkoutTab::UpdateWorkoutScreen() {
  const ProgramState& state = editor_.State();
  const ScreenUpdate updating = editor_.program.BeginScreenUpdate();
  ShowOddSize();
  editor_.program.TrimNames();
  ui_->ExerciseList->SetRows(QtTexts(ExerciseRows(state)));
  ShowNameRemarks();
  ui_->ExerciseSummaryList->SetRows(QtTexts(SummaryRows(state)));
  shownExercise_ = state.CurrentExercise;
  SelectExercise(shownExercise_);
  ui_->TotalWorkoutMusicTimeLabel->clear();
  ui_->TotalWorkoutMusicTimeLabel->setText(QString::fromStdString(TotalMusicTimeText(state)));
}

void WorkoutTab::ShowNameRemarks() {
  int row = 0;
  for (const std::string& remark : NameRemarks(editor_.State())) {
    if (!remark.empty()) ui_->ExerciseList->SetRemark(row, QString::fromStdString(remark));
    ++row;
  }
}

void WorkoutTab::ShowOddSize() {
  const QString text = QString::fromStdString(OddSizeOf(editor_.State()));
  QLabel* label = ui_->WorkoutFileLabel;
  if (text == label->text()) return;
  label->setText(text);
  label->setVisible(!text.isEmpty());
  if (text.isEmpty()) return;
  QAccessibleEvent told(label, QAccessible::Alert);
  QAccessible::updateAccessibility(&told);
}

void WorkoutTab::EnableEditing(bool enabled) {
  ui_->DeleteSelectedWorkoutButton->setEnabled(enabled);
  ui_->ExerciseListFrame->setEnabled(enabled);
  ui_->ExerciseList->SetHint(enabled ? "No exercises yet: add one with \"Add New Exercise\"."
                                     : "Create or choose a workout first.");
}

}  // namespace repvolta
