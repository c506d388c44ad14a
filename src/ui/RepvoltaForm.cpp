#include "ui/RepvoltaForm.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QEventLoop>
#include <QScreen>
#include <QStyle>
#include <QTabBar>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "app/WorkoutFiles.h"
#include "base/Text.h"
#include "editing/LoadedWorkout.h"
#include "editing/PreviewCommands.h"
#include "editing/RestoreBackup.h"
#include "editing/StartUp.h"
#include "editing/UpdateCommands.h"
#include "ui/BackupActions.h"
#include "ui/ExerciseTab.h"
#include "ui/GrowthAheadCommand.h"
#include "ui/Help.h"
#include "ui/Keys.h"
#include "ui/LastUpdate.h"
#include "ui/MainMenu.h"
#include "ui/SettingsTab.h"
#include "ui/UndoActions.h"
#include "ui/VoiceActions.h"
#include "ui/WheelGuard.h"
#include "ui/WindowLayout.h"
#include "ui/WorkoutActions.h"
#include "ui/WorkoutTab.h"
#include "update/Steps.h"

#include "ui_RepvoltaForm.h"

namespace repvolta {
namespace {

constexpr int kMoment = 50;  // milliseconds

/// The control that gets the focus when a place of the preview is shown; null for none.
const char* ControlAt(PreviewPlace::Kind place) {
  switch (place) {
    case PreviewPlace::Kind::kWorkout:
      return "ExerciseList";
    case PreviewPlace::Kind::kSet:
      return "SetList1";
    case PreviewPlace::Kind::kSong:
      return "MusicList";
    case PreviewPlace::Kind::kTargetTime:
      return "SetExerciseTimeButton";
    case PreviewPlace::Kind::kRandomMusicList:
      return "CompileMusicList";
    case PreviewPlace::Kind::kOutputPath:
      return "OutputPathButton";
    case PreviewPlace::Kind::kExercise:
      return "SSTab1";
    case PreviewPlace::Kind::kGuide:
      break;
  }
  return nullptr;
}

}  // namespace

RepvoltaForm::RepvoltaForm(Program& program, Dialogs& dialogs, ProgressWindow& progress,
                           PleaseWait& pleaseWait, const std::string& layoutFile)
    : editor_{.program = program,
              .log = *this,
              .host = *this,
              .screen = *this,
              .dialogs = dialogs,
              .progress = progress,
              .pleaseWait = pleaseWait,
              .runEvents = [this] { RunEvents(); }},
      layoutFile_(layoutFile),
      handlers_(
          dialogs, [this] { ReloadWorkout(); },
          [this](Handlers::Outcome outcome) { AfterHandler(outcome); }),
      ui_(std::make_unique<Ui::RepvoltaForm>()) {
  ui_->setupUi(this);
  setWindowFlags(Qt::Window);
  AddTabs();
  ConnectButtons();
  lastUpdate_ =
      new LastUpdate(this, ui_->LastUpdateLabel, [this] { editor_.progress.ShowAgain(); });
  AddMenu();
  progress.OnStop([this] { stopRequested_ = true; });
  progress.OnOpenFolder(
      [this](const std::string& folder) { editor_.dialogs.OpenDocument(folder); });
  new WheelGuard(this);
  TakeSize();
  RestoreWindowLayout(*this, layoutFile_);
  RepvoltaForm::EnableWorkoutControls();
}

RepvoltaForm::~RepvoltaForm() = default;

/// A tab that has to scroll needs room for its scroll bar, too, or it would scroll both ways.
void RepvoltaForm::TakeSize() {
  QSize size = sizeHint();
  const QSize room = screen()->availableSize();
  if (size.height() > room.height())
    size.rwidth() += style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  resize(size.boundedTo(room));
}

void RepvoltaForm::AddTabs() {
  workoutTab_ = new WorkoutTab(editor_, handlers_);
  exerciseTab_ = new ExerciseTab(editor_, handlers_);
  settingsTab_ = new SettingsTab(editor_, handlers_);
  growthAhead_ = new GrowthAheadCommand(editor_, handlers_, *this);
  ui_->WorkoutScrollArea->setWidget(workoutTab_);
  ui_->ExerciseScrollArea->setWidget(exerciseTab_);
  ui_->SettingsScrollArea->setWidget(settingsTab_);
  ui_->SSTab1->tabBar()->setAccessibleName("Tabs");
  // In the tab order, the window's buttons follow the controls of the tabs.
  for (QWidget* button : std::initializer_list<QWidget*>{ui_->UpdateSelectedWorkoutButton,
                                                         ui_->UpdateAllWorkoutsButton,
                                                         ui_->AboutButton, ui_->ExitButton}) {
    setTabOrder(previousInFocusChain(), button);
  }
  connect(workoutTab_, &WorkoutTab::ExerciseOpened, this,
          [this] { ui_->SSTab1->setCurrentWidget(ui_->ExercisePage); });
  connect(ui_->SSTab1, &QTabWidget::currentChanged, this, [this] {
    if (editor_.State().ScreenUpdating) return;
    handlers_.Run("The exercise cannot be shown as a whole.", [this] { SSTab1_Click(); });
  });
}

void RepvoltaForm::OfferListening(SoundPlayer& player, BackgroundSpeech& speech) {
  const auto current = [this] {
    const int selected = workoutTab_->SelectedExercise();
    const bool isSelecting = ui_->SSTab1->currentWidget() == ui_->WorkoutPage && selected >= 0;
    return isSelecting ? selected : editor_.State().CurrentExercise;
  };
  listening_ = std::make_unique<Listening>(
      editor_.program,
      Listening::Services{.player = player,
                          .speech = speech,
                          .output = [this] { return settingsTab_->SelectedAudioOutput(); },
                          .current = current});
  editor_.listening = listening_.get();
  exerciseTab_->OfferListening(*listening_, this);
}

void RepvoltaForm::StopListening() {
  if (listening_) listening_->Stop();
}

void RepvoltaForm::ConnectButtons() {
  handlers_.OnClick(ui_->UpdateSelectedWorkoutButton, "The workout could not be updated.",
                    [this] { UpdateSelectedWorkoutButton_Click(editor_); });
  handlers_.OnClick(ui_->UpdateAllWorkoutsButton, "The workouts could not be updated.",
                    [this] { UpdateAllWorkoutsButton_Click(editor_); });
  handlers_.OnClickApart(ui_->AboutButton, "The box could not be shown.",
                         [this] { editor_.dialogs.ShowAbout(); });
  connect(ui_->ExitButton, &QPushButton::clicked, this, &RepvoltaForm::Exit);
  AddKey(this, Qt::CTRL | Qt::Key_U, ui_->UpdateSelectedWorkoutButton);
  AddKey(this, Qt::CTRL | Qt::SHIFT | Qt::Key_U, ui_->UpdateAllWorkoutsButton);
  AddKey(this, Qt::SHIFT | Qt::Key_F1, ui_->AboutButton);
  AddKey(this, Qt::CTRL | Qt::Key_Q, ui_->ExitButton);
}

/// The commands that have no button, and the menu bar with all commands.
void RepvoltaForm::AddMenu() {
  previewAction_ = AddCommand(this, "PreviewAction", "Preview Update ...", Qt::CTRL | Qt::Key_P);
  connect(previewAction_, &QAction::triggered, this, &RepvoltaForm::PreviewAction_Trigger);
  QAction* back = AddCommand(this, "PreviousTabAction", "Previous Tab", Qt::CTRL | Qt::Key_PageUp);
  connect(back, &QAction::triggered, this, [this] { StepTab(-1); });
  QAction* next = AddCommand(this, "NextTabAction", "Next Tab", Qt::CTRL | Qt::Key_PageDown);
  connect(next, &QAction::triggered, this, [this] { StepTab(1); });
  workoutActions_ = std::make_unique<WorkoutActions>(
      *this, editor_, handlers_, [this] { return workoutTab_->SelectedExercise(); });
  undoActions_ = std::make_unique<UndoActions>(*this, editor_, handlers_,
                                               [this] { exerciseTab_->FollowRandomMusic(); });
  AddBackupActions(*this, editor_, handlers_);
  voiceActions_ = std::make_unique<VoiceActions>(
      *this, editor_, handlers_, [this] { return settingsTab_->SelectedAudioOutput(); });
  new Help(*this, editor_.dialogs);
  menu_ = new MainMenu(*this, MenuLines());
  layout()->setMenuBar(menu_);
}

void RepvoltaForm::PreviewAction_Trigger() {
  PreviewOutcome outcome;
  handlers_.Run("The update could not be previewed.", [&] { outcome = PreviewUpdate(editor_); });
  if (outcome.after == AfterPreview::kUpdate) ui_->UpdateSelectedWorkoutButton->click();
  const char* control = outcome.place ? ControlAt(outcome.place->kind) : nullptr;
  if (control != nullptr) findChild<QWidget*>(control)->setFocus();
}

/// The selection is kept, because the command acts on the rows that the person selected.
void RepvoltaForm::ReloadWorkout() {
  FinishPendingRestore(editor_);
  const KeptRow exercise = workoutTab_->KeepSelection();
  const KeptRow music = exerciseTab_->KeepSelection();
  ReloadChangedWorkout(editor_);
}

void RepvoltaForm::SSTab1_Click() {
  editor_.program.SelectExercise(std::max(0, workoutTab_->SelectedExercise()));
  ShowExerciseFrames();
  UpdateExerciseScreen();
  UpdateWorkoutScreen();
}

void RepvoltaForm::ShowExerciseFrames() {
  exerciseTab_->ShowContent(editor_.State().NumberOfExercises >= 1
                                ? ExerciseTab::Content::kExercise
                                : ExerciseTab::Content::kNoExercise);
}

void RepvoltaForm::StepTab(int step) {
  // Filling the tab is a command, and no second command can run: the tab would stay unfilled.
  if (handlers_.AreRunning()) return;
  QTabWidget* tabs = ui_->SSTab1;
  int index = tabs->currentIndex() + step;
  while (index >= 0 && index < tabs->count() && !tabs->isTabEnabled(index)) index += step;
  if (index >= 0 && index < tabs->count()) tabs->setCurrentIndex(index);
}

void RepvoltaForm::AfterHandler(Handlers::Outcome outcome) {
  if (exitRequested_) {
    End();
    return;
  }
  if (listening_) listening_->StopIfChanged();
  editor_.progress.UpdateEnds();
  ShowOutcome();
  stopRequested_ = false;
  if (outcome == Handlers::Outcome::kFailed) ShowWhatIsInMemory();
  SetBusy(false);
  EnableWorkoutControls();
}

void RepvoltaForm::ShowOutcome() {
  const UpdateOutcome outcome = std::exchange(outcome_, {});
  if (outcome.IsEmpty()) return;
  // The progress window hides itself after "Update ALL Workouts".
  const bool isHidden = editor_.State().UpdatingAllWorkouts && !stopRequested_;
  const bool isHintDue = !isHidden && outcome.HasCompleteWorkout();
  editor_.progress.ShowOutcome({.text = outcome.Text(),
                                .folder = outcome.Folder(),
                                .hint = isHintDue ? TakePlayerHint(editor_) : std::string()});
  lastUpdate_->Show(isHidden ? outcome.Text() : std::string());
}

/// A change that could not be saved is still in memory, and the tabs show the memory. The message
/// about a record that cannot be shown has already appeared.
void RepvoltaForm::ShowWhatIsInMemory() {
  // A command that changes the list of exercises makes its exercise current, and that row becomes
  // selected; after any other command the person's selection stays.
  const int row = workoutTab_->SelectedExercise();
  const bool isChoice = editor_.State().CurrentExercise == workoutTab_->ShownExercise();
  ShowExerciseFrames();
  const auto refresh = [](const std::function<void()>& show) {
    try {
      show();
    } catch (const std::exception&) {
    }
  };
  refresh([this] { UpdateWorkoutScreen(); });
  if (isChoice) workoutTab_->SelectExercise(row);
  refresh([this] { UpdateExerciseScreen(); });
}

void RepvoltaForm::Exit() {
  if (exitRequested_) return;
  exitRequested_ = true;
  StopListening();
  stopRequested_ = true;
  ExitButton_Click(editor_);
  SaveWindowLayout(*this, layoutFile_);
  if (!handlers_.AreRunning()) End();
}

void RepvoltaForm::End() {
  if (ended_) return;
  ended_ = true;
  editor_.progress.Hide();
  hide();
  Q_EMIT Ended();
}

void RepvoltaForm::closeEvent(QCloseEvent* event) {
  Exit();
  event->setAccepted(ended_);
}

void RepvoltaForm::SetBusy(bool busy) {
  if (busy == busy_) return;
  busy_ = busy;
  if (busy) focusBefore_ = focusWidget();
  ui_->SSTab1->setEnabled(!busy);
  menu_->setEnabled(!busy);
  ui_->AboutButton->setEnabled(!busy);
  EnableWorkoutControls();
  if (!busy && focusBefore_) focusBefore_->setFocus(Qt::OtherFocusReason);
}

void RepvoltaForm::LetEventsRun() {
  // Events also run during the start of the program, when no command is running.
  SetBusy(handlers_.AreRunning());
  QCoreApplication::processEvents();
}

void RepvoltaForm::RunEvents() {
  LetEventsRun();
  if (stopRequested_) throw UpdateStopped();
}

bool RepvoltaForm::KeepWaiting() {
  SetBusy(handlers_.AreRunning());
  QEventLoop moment;
  QTimer::singleShot(kMoment, &moment, &QEventLoop::quit);
  moment.exec();
  return !stopRequested_;
}

bool RepvoltaForm::StopRequested() { return stopRequested_; }

void RepvoltaForm::AddLineToUpdateList(std::string_view line) {
  outcome_.AddLine(KindOfLine(line));
  editor_.progress.AddLine(line);
  LetEventsRun();
}

void RepvoltaForm::UpdateBegins() {
  StopListening();
  editor_.progress.Show();
}

void RepvoltaForm::ShowWork(const WorkDone& work) {
  editor_.progress.ShowProgress(meter_.Read(work, std::chrono::steady_clock::now()));
  LetEventsRun();
}

void RepvoltaForm::ShowWorkoutNames() { workoutTab_->ShowWorkoutNames(); }

void RepvoltaForm::UpdateWorkoutScreen() {
  exerciseTab_->ShowSteps();
  workoutTab_->UpdateWorkoutScreen();
}

void RepvoltaForm::UpdateExerciseScreen() { exerciseTab_->UpdateExerciseScreen(); }

void RepvoltaForm::UpdateSettingsScreen() { settingsTab_->UpdateSettingsScreen(); }

void RepvoltaForm::ShowPaths() { settingsTab_->ShowPaths(); }

void RepvoltaForm::ShowDefaultExerciseTime() { settingsTab_->ShowDefaultExerciseTime(); }

void RepvoltaForm::SelectWorkout(int index) { workoutTab_->SelectWorkout(index); }

int RepvoltaForm::SelectedWorkout() const { return workoutTab_->SelectedWorkout(); }

void RepvoltaForm::SelectSet(int row) { exerciseTab_->SelectSet(row); }

void RepvoltaForm::SelectMusic(int row) { exerciseTab_->SelectMusic(row); }

void RepvoltaForm::ShowVoices(const std::vector<std::string>& names) {
  settingsTab_->ShowVoices(names);
}

void RepvoltaForm::ShowAudioOutputs(const std::vector<std::string>& names) {
  settingsTab_->ShowAudioOutputs(names);
}

void RepvoltaForm::ShowFormats() { settingsTab_->ShowFormats(); }

void RepvoltaForm::ShowTab(WindowTab tab) {
  // During a command the tab does not fill itself.
  if (tab == WindowTab::kExercise) ShowExerciseFrames();
  ui_->SSTab1->setCurrentIndex(static_cast<int>(tab));
}

void RepvoltaForm::EnableWorkoutControls() {
  const bool hasWorkout = !TrimBlanks(editor_.State().WorkoutFileName).empty();
  workoutTab_->EnableEditing(hasWorkout);
  workoutActions_->Enable(hasWorkout);
  undoActions_->Refresh(busy_);
  workoutTab_->ShowOddSize();
  if (!hasWorkout && ui_->SSTab1->currentWidget() == ui_->ExercisePage) {
    const ScreenUpdate updating = editor_.program.BeginScreenUpdate();
    ShowTab(WindowTab::kWorkout);
  }
  ui_->SSTab1->setTabEnabled(static_cast<int>(WindowTab::kExercise), hasWorkout);
  ui_->UpdateSelectedWorkoutButton->setEnabled(hasWorkout && !busy_);
  ui_->UpdateAllWorkoutsButton->setEnabled(hasWorkout && !busy_);
  growthAhead_->Refresh();
  previewAction_->setEnabled(hasWorkout && !busy_);
}

}  // namespace repvolta
