#include "ui/ExerciseTab.h"

#include <algorithm>

#include "base/File.h"
#include "base/Numbers.h"
#include "editing/ExerciseSteps.h"
#include "editing/MusicEditing.h"
#include "editing/ScreenTexts.h"
#include "editing/SetEditing.h"
#include "editing/SetValueEditing.h"
#include "ui/ExerciseNotes.h"
#include "ui/ExerciseSteps.h"
#include "ui/FileDrop.h"
#include "ui/Keys.h"
#include "ui/ListenButtons.h"
#include "ui/SetTable.h"
#include "ui/SongMarks.h"

#include "ui_ExerciseTab.h"

namespace repvolta {
namespace {

/// Checks one of the mutually exclusive buttons, or none if no button has the index.
template <std::size_t Size>
void CheckOne(const std::array<QAbstractButton*, Size>& buttons, int index) {
  for (QAbstractButton* button : buttons) button->setAutoExclusive(false);
  for (std::size_t i = 0; i < Size; ++i) buttons[i]->setChecked(static_cast<int>(i) == index);
  for (QAbstractButton* button : buttons) button->setAutoExclusive(true);
}

}  // namespace

ExerciseTab::ExerciseTab(Editor& editor, Handlers& handlers)
    : editor_(editor), handlers_(handlers), ui_(std::make_unique<Ui::ExerciseTab>()) {
  ui_->setupUi(this);
  sets_ = new SetTable({ui_->SetList1, ui_->SetList2, ui_->SetListInc1, ui_->SetListInc2,
                        ui_->FreqList1, ui_->FreqList2, ui_->NextUpdateList},
                       this);
  listen_ = new ListenButtons(editor_, handlers_, this);
  ui_->ExerciseNameRow->addWidget(listen_, 2);
  listen_->ComeAfter(ui_->NextExerciseButton);
  setButtons_ = {ui_->SetButton_0, ui_->SetButton_1, ui_->SetButton_2, ui_->SetButton_3};
  unitsSelections_ = {ui_->UnitsSelection_0, ui_->UnitsSelection_1};
  ui_->MusicList->setTextElideMode(Qt::ElideMiddle);
  ui_->NoSetsLabel->setForegroundRole(QPalette::PlaceholderText);
  ui_->GrowthLabel->Follow(editor_, {ui_->FreqList1, ui_->FreqList2, ui_->NextUpdateList});
  ConnectSetButtons();
  ConnectSetLists();
  ConnectChoices();
  ConnectMusic();
  AddHelpers();
}

ExerciseTab::~ExerciseTab() = default;

void ExerciseTab::OfferListening(Listening& listening, QWidget* window) {
  listen_->Use(listening);
  listen_->AddKeys(window);
}

void ExerciseTab::ConnectSetButtons() {
  handlers_.OnClick(ui_->AddNewSetButton, "The set could not be added.",
                    [this] { AddNewSetButton_Click(editor_); });
  handlers_.OnClick(ui_->RemoveSelectedSetButton, "The set could not be removed.",
                    [this] { RemoveSelectedSetButton_Click(editor_, SelectedSet()); });
  handlers_.OnClick(ui_->MoveSetUpListButton, "The set could not be moved.",
                    [this] { MoveSetUpListButton_Click(editor_, SelectedSet()); });
  handlers_.OnClick(ui_->ManualDateResetButton, "The date could not be reset.",
                    [this] { ManualDateResetButton_Click(editor_, SelectedSet()); });
  for (QWidget* scope : std::initializer_list<QWidget*>{ui_->SetSplitter, ui_->SetButtonsFrame}) {
    AddKey(scope, Qt::Key_Insert, ui_->AddNewSetButton);
    AddKey(scope, Qt::Key_Delete, ui_->RemoveSelectedSetButton);
    AddKey(scope, Qt::ALT | Qt::Key_Up, ui_->MoveSetUpListButton);
  }
}

void ExerciseTab::ConnectSetLists() {
  using Handler = void (*)(Editor&, int);
  const std::initializer_list<std::pair<RowList*, Handler>> doubleClicks = {
      {ui_->SetList1, SetList1_DblClick},
      {ui_->SetList2, SetList2_DblClick},
      {ui_->SetListInc1, SetListInc1_DblClick},
      {ui_->SetListInc2, SetListInc2_DblClick},
      {ui_->FreqList1, FreqList1_DblClick},
      {ui_->FreqList2, FreqList2_DblClick},
      {ui_->NextUpdateList, NextUpdateList_DblClick},
  };
  for (const auto& [list, handler] : doubleClicks) {
    connect(list, &RowList::RowChosen, this, [this, handler = handler](int row) {
      handlers_.Run("Nothing was changed.", [&] { handler(editor_, row); });
    });
  }
}

void ExerciseTab::ConnectChoices() {
  for (int i = 0; i < static_cast<int>(setButtons_.size()); ++i) {
    connect(setButtons_[static_cast<std::size_t>(i)], &QAbstractButton::toggled, this,
            [this, i](bool checked) {
              if (!checked || editor_.State().ScreenUpdating) return;
              handlers_.Run("The kind of sets could not be changed.",
                            [&] { SetButton_Click(editor_, i); });
            });
  }
  for (int i = 0; i < static_cast<int>(unitsSelections_.size()); ++i) {
    connect(unitsSelections_[static_cast<std::size_t>(i)], &QAbstractButton::toggled, this,
            [this, i](bool checked) {
              if (!checked || editor_.State().ScreenUpdating) return;
              handlers_.Run("The units could not be changed.",
                            [&] { UnitsSelection_Click(editor_, i); });
            });
  }
  connect(ui_->RandomMusicCheckBox, &QCheckBox::toggled, this, &ExerciseTab::ChooseRandomMusic);
}

void ExerciseTab::ChooseRandomMusic(bool chosen) {
  handlers_.Run("The choice could not be kept.", [&] {
    RandomMusicCheckBox_Click(editor_, chosen ? CheckBox::kTicked : CheckBox::kUnticked);
  });
  if (!editor_.State().ScreenUpdating) {
    ShowTarget(editor_.Exercise());
    notes_->Show(editor_.Exercise());
  }
  // Refreshing the tab does not touch the box, so a choice that had no effect is undone here.
  if (editor_.State().ScreenUpdating || (editor_.Exercise().RandomMusic == kTrue) == chosen) return;
  const ScreenUpdate updating = editor_.program.BeginScreenUpdate();
  ui_->RandomMusicCheckBox->setChecked(!chosen);
}

void ExerciseTab::FollowRandomMusic() {
  if (editor_.State().NumberOfExercises < 1) return;
  const ScreenUpdate updating = editor_.program.BeginScreenUpdate();
  ui_->RandomMusicCheckBox->setChecked(editor_.Exercise().RandomMusic == kTrue);
  notes_->Show(editor_.Exercise());
}

void ExerciseTab::ConnectMusic() {
  handlers_.OnClick(ui_->SetExerciseTimeButton, "The time could not be set.",
                    [this] { SetExerciseTimeButton_Click(editor_); });
  handlers_.OnClick(ui_->AddMusicFileButton, "The music file could not be added.",
                    [this] { AddMusicFileButton_Click(editor_); });
  handlers_.OnClick(ui_->RemoveMusicFileButton, "The music file could not be removed.",
                    [this] { RemoveMusicFileButton_Click(editor_, SelectedMusic()); });
  handlers_.OnClick(ui_->MoveMusicFileUpListButton, "The music file could not be moved.",
                    [this] { MoveMusicFileUpListButton_Click(editor_, SelectedMusic()); });
  for (QWidget* scope :
       std::initializer_list<QWidget*>{ui_->MusicListFrame, ui_->MusicButtonsFrame}) {
    AddKey(scope, Qt::Key_Insert, ui_->AddMusicFileButton);
    AddKey(scope, Qt::Key_Delete, ui_->RemoveMusicFileButton);
    AddKey(scope, Qt::ALT | Qt::Key_Up, ui_->MoveMusicFileUpListButton);
  }
  new FileDrop(
      ui_->MusicList->viewport(), [this] { return TakesMusic(); },
      [this](const std::vector<std::string>& paths) {
        handlers_.Run("The music could not be added.", [&] { MusicList_DragDrop(editor_, paths); });
      });
}

void ExerciseTab::AddHelpers() {
  notes_ = std::make_unique<ExerciseNotes>(
      ExerciseNotes::Controls{.randomMusicBox = ui_->RandomMusicCheckBox,
                              .randomMusicLabel = ui_->RandomMusicStateLabel,
                              .addSet = ui_->AddNewSetButton,
                              .addMusic = ui_->AddMusicFileButton});
  songMarks_ = std::make_unique<SongMarks>(ui_->MusicList, ui_->GoneSongsLabel, FileIsReachable);
  steps_ = std::make_unique<ExerciseSteps>(ui_->PreviousExerciseButton, ui_->NextExerciseButton);
  const char* failure = "The exercise cannot be shown as a whole.";
  handlers_.OnClick(ui_->PreviousExerciseButton, failure,
                    [this] { PreviousExerciseButton_Click(editor_); });
  handlers_.OnClick(ui_->NextExerciseButton, failure,
                    [this] { NextExerciseButton_Click(editor_); });
  AddWindowKey(this, Qt::CTRL | Qt::Key_Up, ui_->PreviousExerciseButton);
  AddWindowKey(this, Qt::CTRL | Qt::Key_Down, ui_->NextExerciseButton);
}

void ExerciseTab::ShowSteps() { steps_->Show(editor_.State()); }

bool ExerciseTab::TakesMusic() const {
  return ui_->MusicList->isEnabled() && !handlers_.AreRunning() &&
         editor_.State().NumberOfExercises >= 1;
}

int ExerciseTab::SelectedSet() const { return sets_->SelectedRow(); }

int ExerciseTab::SelectedMusic() const { return ui_->MusicList->SelectedRow(); }

void ExerciseTab::SelectSet(int row) { sets_->SelectRow(row); }

void ExerciseTab::SelectMusic(int row) { ui_->MusicList->SelectRow(row); }

KeptRow ExerciseTab::KeepSelection() { return KeptRow(*ui_->MusicList); }

void ExerciseTab::ShowContent(Content content) {
  const bool shown = content == Content::kExercise;
  for (QWidget* frame : std::initializer_list<QWidget*>{
           ui_->SetButtonsFrame, ui_->MusicButtonsFrame, ui_->MusicListFrame,
           ui_->ExerciseSettingFrame, ui_->SetDetailsFrame, ui_->AutoIncFrame, ui_->GrowthLabel}) {
    frame->setVisible(shown);
  }
  listen_->ShowForExercise(shown);
  ShowSteps();
  if (!shown) ui_->ExerciseNameLabel->setText("No Exercise Selected");
}

void ExerciseTab::UpdateExerciseScreen() {
  const ProgramState& state = editor_.State();
  if (state.NumberOfExercises < 1) return;
  // 5 passes, although it is one beyond the last usable exercise (quirk 102).
  if (state.CurrentExercise > MaxExercises) {
    editor_.dialogs.ShowMessage(
        "Cannot update exercise screen. Current exercise number exceeds MaxExercises");
    return;
  }
  const ScreenUpdate updating = editor_.program.BeginScreenUpdate();
  try {
    ShowExercise(editor_.Exercise());
  } catch (...) {
    // A row of the previous exercise must not stay and be taken for one of this exercise.
    ui_->MusicList->SetRows({});
    songMarks_->Show({});
    sets_->SetRows({});
    ui_->GrowthLabel->ShowNothing();
    throw;
  }
}

void ExerciseTab::ShowExercise(const ExerciseRecord& exercise) {
  ui_->ExerciseNameLabel->setText(QString::fromStdString(exercise.ExerciseName.Trimmed()));
  ShowSteps();
  notes_->Show(exercise);
  ShowMusic(exercise);
  ui_->EstimatedExerciseTimeLabel->setText(
      QString::fromStdString("Target Exercise Time = " + FormatTime(exercise.TargetExerciseTime)));
  ui_->TotalMusicTimeLabel->setText(
      QString::fromStdString("Total Music Time = " + FormatTime(exercise.TotalMusicTime)));
  ShowTarget(exercise);
  ShowFieldNames(exercise);
  ShowChoices(exercise);
  ShowSets(exercise);
  // The random music check box stays as it is (quirk 45).
}

void ExerciseTab::ShowMusic(const ExerciseRecord& exercise) {
  const std::vector<std::string> files = MusicRows(exercise);
  const int selected = SelectedMusic();
  ui_->MusicList->SetRows(QtTexts(files));
  ui_->MusicList->SelectRow(selected);
  songMarks_->Show(files);
}

void ExerciseTab::ShowTarget(const ExerciseRecord& exercise) {
  ui_->TargetLabel->setText(QString::fromStdString(TargetText(exercise)));
}

void ExerciseTab::ShowFieldNames(const ExerciseRecord& exercise) {
  const FieldNames names = FieldNamesOf(exercise);
  const QString first = QString::fromStdString(names.first);
  const QString second = QString::fromStdString(names.second);
  for (QLabel* label : {ui_->SetListLabel1, ui_->SetListIncLabel1, ui_->FreqListLabel1}) {
    label->setText(first);
  }
  for (QLabel* label : {ui_->SetListLabel2, ui_->SetListIncLabel2, ui_->FreqListLabel2}) {
    label->setText(second);
  }
  ui_->NextUpdateListLabel->setText(first + ", " + second);
  ui_->SetList1->setAccessibleName("First value: " + first);
  ui_->SetList2->setAccessibleName("Second value: " + second);
  ui_->SetListInc1->setAccessibleName("First increment: " + first);
  ui_->SetListInc2->setAccessibleName("Second increment: " + second);
  ui_->FreqList1->setAccessibleName("First frequency in days: " + first);
  ui_->FreqList2->setAccessibleName("Second frequency in days: " + second);
}

void ExerciseTab::ShowChoices(const ExerciseRecord& exercise) {
  CheckOne(unitsSelections_, exercise.Units == kFalse ? 0 : 1);
  CheckOne(setButtons_, exercise.SetType);
}

void ExerciseTab::ShowSets(const ExerciseRecord& exercise) {
  const SetColumns texts = SetRows(exercise, editor_.program.clock.Now());
  SetTable::Columns columns;
  std::transform(texts.begin(), texts.end(), columns.begin(), QtTexts);
  const int selected = SelectedSet();
  sets_->SetRows(columns);
  sets_->SelectRow(selected);
  ui_->GrowthLabel->Refresh();
  // The hint is beside the button that adds a set, because the columns are too narrow for it.
  ui_->NoSetsLabel->setVisible(exercise.NumberOfSets == 0);
}

}  // namespace repvolta
