#pragma once

#include <QDialog>
#include <QPointer>
#include <functional>
#include <memory>
#include <string>

#include "editing/Editor.h"
#include "editing/Listening.h"
#include "editing/MainScreen.h"
#include "editing/UpdateOutcome.h"
#include "ui/Handlers.h"
#include "update/Progress.h"

class QAction;

namespace Ui {
class RepvoltaForm;
}

namespace repvolta {

class ExerciseTab;
class GrowthAheadCommand;
class LastUpdate;
class MainMenu;
class SettingsTab;
class UndoActions;
class VoiceActions;
class WorkoutActions;
class WorkoutTab;

/// The main window. The start-up fills it before it is shown. Closing it ends the program.
class RepvoltaForm : public QDialog, public MainScreen, public ProgressLog, public UpdateHost {
  Q_OBJECT

 public:
  /// `layoutFile` keeps the size of the window; see ui/WindowLayout.h. The other arguments must
  /// outlive the window.
  RepvoltaForm(Program& program, Dialogs& dialogs, ProgressWindow& progress, PleaseWait& pleaseWait,
               const std::string& layoutFile);
  ~RepvoltaForm() override;

  /// The editor of the commands, with this window as its screen.
  const Editor& GetEditor() const { return editor_; }

  /// Until this call nothing can be listened to. Both must outlive the window.
  void OfferListening(SoundPlayer& player, BackgroundSpeech& speech);

  /// The windows of the menu "Voice".
  VoiceActions& GetVoiceActions() { return *voiceActions_; }

  /// Handles the windows' events during a wait. Throws UpdateStopped when the person has stopped
  /// the update or ended the program.
  void RunEvents();

  void AddLineToUpdateList(std::string_view line) override;
  void ShowWorkoutNames() override;
  void UpdateWorkoutScreen() override;
  void UpdateExerciseScreen() override;
  void UpdateBegins() override;
  void UpdateEnded(const UpdateResult& result) override { outcome_.Add(result); }
  bool IsWatched() const override { return true; }
  void ShowWork(const WorkDone& work) override;
  bool KeepWaiting() override;
  bool StopRequested() override;

  void UpdateSettingsScreen() override;
  void ShowPaths() override;
  void ShowDefaultExerciseTime() override;
  void SelectWorkout(int index) override;
  int SelectedWorkout() const override;
  void EnableWorkoutControls() override;
  void ShowTab(WindowTab tab) override;
  void SelectSet(int row) override;
  void SelectMusic(int row) override;
  void ShowVoices(const std::vector<std::string>& names) override;
  void ShowAudioOutputs(const std::vector<std::string>& names) override;
  void ShowFormats() override;

  /// Escape does not close the main window.
  void reject() override {}

 Q_SIGNALS:
  /// The program ends now: no command runs any more.
  void Ended();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void TakeSize();
  void AddTabs();
  void ConnectButtons();
  void AddMenu();
  void PreviewAction_Trigger();
  void SSTab1_Click();
  void ShowExerciseFrames();
  void StepTab(int step);
  void Exit();
  void End();
  void ReloadWorkout();
  void AfterHandler(Handlers::Outcome outcome);
  void ShowWhatIsInMemory();
  void ShowOutcome();
  void LetEventsRun();
  void StopListening();
  void SetBusy(bool busy);

  Editor editor_;
  std::string layoutFile_;
  Handlers handlers_;
  std::unique_ptr<Ui::RepvoltaForm> ui_;
  std::unique_ptr<Listening> listening_;
  std::unique_ptr<WorkoutActions> workoutActions_;
  std::unique_ptr<UndoActions> undoActions_;
  std::unique_ptr<VoiceActions> voiceActions_;
  WorkoutTab* workoutTab_ = nullptr;
  ExerciseTab* exerciseTab_ = nullptr;
  SettingsTab* settingsTab_ = nullptr;
  GrowthAheadCommand* growthAhead_ = nullptr;
  LastUpdate* lastUpdate_ = nullptr;
  MainMenu* menu_ = nullptr;
  QAction* previewAction_ = nullptr;
  QPointer<QWidget> focusBefore_;  // while busy
  ProgressMeter meter_;
  UpdateOutcome outcome_;  // of the command that runs
  bool busy_ = false;
  bool stopRequested_ = false;  // the update or listing that runs ends at its next step
  bool exitRequested_ = false;
  bool ended_ = false;
};

}  // namespace repvolta
