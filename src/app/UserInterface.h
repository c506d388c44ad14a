#pragma once

#include <string>
#include <string_view>

#include "app/ProgressLog.h"
#include "base/Product.h"

namespace repvolta {

/// What the procedures ask of the person and the screen in front of them. The main window is one;
/// the program without a window another.
class UserInterface : public ProgressLog {
 public:
  /// A message box with an OK button; returns when it was closed. A carriage return is a line
  /// break.
  virtual void ShowMessage(std::string_view text, std::string_view title = kProductName) = 0;

  /// Refills WorkoutDropBox from the state's WorkoutNames; nothing is selected then.
  virtual void ShowWorkoutNames() = 0;

  virtual void UpdateWorkoutScreen() = 0;
  virtual void UpdateExerciseScreen() = 0;

  /// Shows the progress window, its list empty, without waiting for its end.
  virtual void ShowUpdateForm() = 0;
  virtual void HideUpdateForm() = 0;

  /// Opens a play list with the program that the desktop has for it.
  virtual void OpenPlayList(const std::string& path) = 0;

  /// Called between two looks for a copied file that is not there yet: lets a window live for a
  /// moment. False: give the file up.
  virtual bool KeepWaiting() = 0;

  /// True when the person wants the program to end: an update stops at its next step.
  virtual bool StopRequested() = 0;
};

}  // namespace repvolta
