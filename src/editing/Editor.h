#pragma once

#include <functional>

#include "app/Program.h"
#include "editing/Dialogs.h"
#include "editing/MainScreen.h"
#include "editing/ProgressWindows.h"

namespace repvolta {

enum class CheckBox { kUnticked, kTicked };

/// What the editing commands work with.
struct Editor {
  Program& program;
  MainScreen& screen;
  Dialogs& dialogs;
  PleaseWait& pleaseWait;
  /// Lets the windows live during long work; throws UpdateStopped when the person ends the program.
  std::function<void()> runEvents;

  ProgramState& State() const { return program.state; }
  ExerciseRecord& Exercise() const { return State().Workout[State().CurrentExercise]; }
};

/// The row that is selected after a row was removed: the one that took its place.
int RowAfterRemoval(int removed, int rowsLeft);

}  // namespace repvolta
