#include "editing/Editor.h"

#include <algorithm>
#include <exception>

#include "app/WorkoutFiles.h"

namespace repvolta {
namespace {

template <class Save>
void SaveOrSay(Save save) {
  try {
    save();
  } catch (const FileError& error) {
    throw UnsavedChange(error);
  }
}

/// Saves, and shows the settings tab if the save took over what another program had saved.
template <class Save, class TookOver>
void SaveAndShowTheirs(const Editor& editor, Save save, TookOver tookOver) {
  const auto showTheirs = [&] {
    if (tookOver()) editor.screen.UpdateSettingsScreen();
  };
  try {
    SaveOrSay(save);
  } catch (const FileError&) {
    showTheirs();
    throw;
  }
  showTheirs();
}

void ShowOrTell(const Editor& editor, const char* failure, const std::function<void()>& show) {
  try {
    show();
  } catch (const std::exception& error) {
    editor.dialogs.ShowMessage(std::string(failure) + "\r" + error.what());
  }
}

}  // namespace

UnsavedChange::UnsavedChange(const FileError& error)
    : FileError(error),
      text_(std::string(error.what()) + "\rThe change is shown, but it is not saved.") {}

void SaveChangedWorkout(const Editor& editor, const WorkoutAccess& workout) {
  SaveOrSay([&] { MakeProgramDirectoryCurrent(editor.State()); });
  const std::string unkept = editor.program.KeepVersionBeforeChange();
  SaveOrSay([&] { SaveWorkout(workout.State()); });
  TellUnkept(editor, unkept);
}

void TellUnkept(const Editor& editor, const std::string& why) {
  if (why.empty()) return;
  editor.program.RememberUnkeptTold();
  editor.dialogs.ShowMessage(why);
}

void SaveChangedSettings(const Editor& editor) {
  const ProgramState& state = editor.State();
  SaveAndShowTheirs(
      editor, [&] { editor.program.WriteSettings(); },
      [&, ours = state.Settings] { return state.Settings != ours; });
}

void SaveChangedOptions(const Editor& editor) {
  const ProgramState& state = editor.State();
  SaveAndShowTheirs(
      editor, [&] { editor.program.WriteOptions(); },
      [&, ours = state.Options] { return state.Options != ours; });
}

void ShowWorkout(const Editor& editor) {
  ShowOrTell(editor, "The workout cannot be shown as a whole.",
             [&] { editor.screen.UpdateWorkoutScreen(); });
}

void ShowExercise(const Editor& editor) {
  ShowOrTell(editor, "The exercise cannot be shown as a whole.",
             [&] { editor.screen.UpdateExerciseScreen(); });
}

void SaveAndShow(const Editor& editor, const WorkoutAccess& workout,
                 const std::function<void()>& show) {
  try {
    SaveChangedWorkout(editor, workout);
  } catch (const FileError&) {
    show();
    throw;
  }
  show();
}

int RowAfterRemoval(int removed, int rowsLeft) { return std::min(removed, rowsLeft - 1); }

}  // namespace repvolta
