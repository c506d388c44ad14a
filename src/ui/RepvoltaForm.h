#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <string>

#include "app/MainScreen.h"
#include "app/Program.h"
#include "ui/Dialogs.h"
#include "ui/ProgressWindows.h"

namespace repvolta {

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
};

/// The main window. The start-up fills it before it is shown.
class RepvoltaForm : public QDialog, public MainScreen {
  Q_OBJECT

 public:
  explicit RepvoltaForm(const FormServices& services);
  ~RepvoltaForm() override;

  /// The state and the services, with this window as the screen.
  Program& GetProgram();

  /// Lets the windows live while something else is waited for. Throws UpdateStopped when the person
  /// has ended the program meanwhile.
  void RunEvents();
};

}  // namespace repvolta
