#pragma once

#include <QDialog>
#include <QPointer>
#include <functional>
#include <memory>
#include <string>

#include "app/Program.h"
#include "editing/Editor.h"
#include "editing/MainScreen.h"
#include "ui/Handlers.h"

namespace Ui {
class RepvoltaForm;
}

namespace repvolta {

class ExerciseTab;
class SettingsTab;
class WorkoutTab;

/// What the main window works with; all of it outlives the window.
struct FormServices {
  ProgramState& state;
  const Clock& clock;
  RandomNumbers& random;
  ChildProcesses& processes;
  SpeechSynthesizer& speech;
  Dialogs& dialogs;
  ProgressWindow& progress;
  PleaseWait& pleaseWait;
  std::function<void(const std::string& path)> openDocument;
  std::string layoutFile = {};  // see WindowLayoutFile
};

/// The main window. The start-up fills it before it is shown. Closing it ends the program.
class RepvoltaForm : public QDialog, public MainScreen {
  Q_OBJECT

 public:
  explicit RepvoltaForm(const FormServices& services);
  ~RepvoltaForm() override;

  /// The state and the services, with this window as the screen.
  Program& GetProgram() { return program_; }

  /// Lets the windows live while something else is waited for. Throws UpdateStopped when the person
  /// has ended the program meanwhile.
  void RunEvents();

  void AddLineToUpdateList(std::string_view line) override;
  void ShowMessage(std::string_view text, std::string_view title) override;
  void ShowWorkoutNames() override;
  void UpdateWorkoutScreen() override;
  void UpdateExerciseScreen() override;
  void ShowUpdateForm() override;
  void HideUpdateForm() override;
  void OpenPlayList(const std::string& path) override;
  bool KeepWaiting() override;
  bool StopRequested() override;

  std::string SelectDirectory() override;
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

 signals:
  /// The program is to end: nothing is to be done any more.
  void Ended();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void AddTabs();
  void ConnectButtons();
  void SSTab1_Click();
  void ShowExerciseFrames();
  void StepTab(int step);
  void Exit();
  void End();
  void ReloadWorkout();
  void AfterHandler(Handlers::Outcome outcome);
  void ShowWhatIsInMemory();
  void LetEventsRun();
  void SetBusy(bool busy);

  Program program_;
  FormServices services_;
  Editor editor_;
  Handlers handlers_;
  std::unique_ptr<Ui::RepvoltaForm> ui_;
  WorkoutTab* workoutTab_ = nullptr;
  ExerciseTab* exerciseTab_ = nullptr;
  SettingsTab* settingsTab_ = nullptr;
  QPointer<QWidget> focusBefore_;  // while busy
  bool busy_ = false;
  bool stopRequested_ = false;
  bool ended_ = false;
};

}  // namespace repvolta
