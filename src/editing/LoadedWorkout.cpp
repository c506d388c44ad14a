#include "editing/LoadedWorkout.h"

#include <algorithm>
#include <string>
#include <vector>

#include "app/WorkoutDamage.h"

namespace repvolta {
namespace {

/// A damaged workout may fail to be shown. That failure is not reported, because the message about
/// the damage says more.
void ShowTabs(const Editor& editor) {
  try {
    editor.screen.UpdateWorkoutScreen();
    editor.screen.UpdateExerciseScreen();
  } catch (const std::exception&) {
    if (DamageOf(editor.State()).empty()) throw;
  }
}

/// A text for each exercise and music file that the window's lists show.
std::vector<std::string> RowsOf(const ProgramState& state) {
  std::vector<std::string> rows;
  for (int i = 0; i < state.NumberOfExercises; ++i) {
    const ExerciseRecord& exercise = state.Workout[i];
    rows.push_back(exercise.ExerciseName.Text() + "/" + std::to_string(exercise.NumberOfSets));
    if (i != state.CurrentExercise) continue;
    const int files = std::min<int>(exercise.NumberOfMusicFiles, MaxMusicFiles);
    for (int j = 0; j < files; ++j) rows.push_back(exercise.MusicFile[j].Text());
  }
  return rows;
}

}  // namespace

void ListWorkouts(const Editor& editor) {
  const ScreenUpdate updating = editor.program.BeginScreenUpdate();
  editor.program.ReadNames();
  editor.screen.ShowWorkoutNames();
}

int PlaceInList(const ProgramState& state, const std::string& fileName) {
  const auto& names = state.WorkoutNames;
  const auto found = std::find(names.begin(), names.end(), fileName);
  return found == names.end() ? -1 : static_cast<int>(found - names.begin());
}

WorkoutLoad LoadOrSayNotFound(const Editor& editor) {
  const WorkoutLoad load = editor.program.ReadWorkout();
  if (load == WorkoutLoad::kNotFound) editor.dialogs.ShowMessage("Error: Workout file not found");
  return load;
}

void ShowLoadedWorkout(const Editor& editor) {
  ShowTabs(editor);
  const std::string damage = DamageOf(editor.State());
  if (!damage.empty()) editor.dialogs.ShowMessage(damage);
}

WorkoutLoad LoadAndShowWorkout(const Editor& editor) {
  const WorkoutLoad load = LoadOrSayNotFound(editor);
  if (load == WorkoutLoad::kLoaded) ShowLoadedWorkout(editor);
  return load;
}

void ReloadChangedWorkout(const Editor& editor) {
  const ProgramState& state = editor.State();
  if (!WorkoutChangedOnDisk(state)) return;
  const std::vector<std::string> rows = RowsOf(state);
  editor.program.ReadWorkoutAnew();
  std::string failure;
  try {
    ShowTabs(editor);
    if (RowsOf(state) == rows) return;
    failure = DamageOf(state);
  } catch (const std::exception& error) {
    failure = error.what();
  }
  throw WorkoutReplaced(state.WorkoutFileName +
                        " was changed by another program and has been loaded again." +
                        (failure.empty() ? "" : "\r" + failure));
}

}  // namespace repvolta
