#include "editing/Undo.h"

#include <algorithm>

#include "base/Text.h"
#include "editing/LoadedWorkout.h"

namespace repvolta {
namespace {

constexpr int kNone = -1;

void ShowNoWorkout(const Editor& editor) {
  editor.program.NameWorkout("");
  editor.screen.SelectWorkout(kNone);
  editor.screen.EnableWorkoutControls();
  editor.screen.ShowTab(WindowTab::kWorkout);
}

/// Returns whether there is one.
bool LoadNamed(const Editor& editor, const std::string& name) {
  editor.program.NameWorkout(name);
  try {
    if (editor.program.ReadWorkout() == WorkoutLoad::kLoaded) return true;
  } catch (const FileError&) {
    // The workout that is in memory must not be saved under this name.
    ShowNoWorkout(editor);
    throw;
  }
  ShowNoWorkout(editor);
  return false;
}

void ShowRow(const Editor& editor, const StepPlace& place) {
  editor.screen.SelectSet(place.list == StepPlace::List::kSets ? place.row : kNone);
  editor.screen.SelectMusic(place.list == StepPlace::List::kMusic ? place.row : kNone);
}

void Show(const Editor& editor, const StepDone& done) {
  GoTo(editor, done.place);
  TellUnkept(editor, done.unkept);
}

}  // namespace

void UndoAction_Trigger(const Editor& editor) {
  if (!editor.history->UndoName().empty()) Show(editor, editor.history->Undo());
}

void RedoAction_Trigger(const Editor& editor) {
  if (!editor.history->RedoName().empty()) Show(editor, editor.history->Redo());
}

void GoTo(const Editor& editor, const StepPlace& place) {
  ListWorkouts(editor);
  if (!LoadNamed(editor, place.workout)) return;
  const int last = std::max(0, editor.State().NumberOfExercises - 1);
  editor.program.SelectExercise(std::clamp(place.exercise, 0, last));
  editor.screen.SelectWorkout(PlaceInList(editor.State(), place.workout));
  editor.screen.EnableWorkoutControls();
  editor.screen.ShowTab(place.tab);
  ShowExercise(editor);
  ShowWorkout(editor);
  ShowRow(editor, place);
}

StepPlace PlaceNow(const Editor& editor, WindowTab tab) {
  return {.workout = editor.State().WorkoutFileName,
          .tab = tab,
          .exercise = editor.State().CurrentExercise};
}

StepDescription StepOfExercise(const Editor& editor, const std::string& name) {
  const StepPlace place = PlaceNow(editor, WindowTab::kExercise);
  return {name, place, place};
}

StepDescription StepOfRow(const Editor& editor, const std::string& name, StepPlace::List list,
                          int undone, int done) {
  StepDescription step = StepOfExercise(editor, name);
  step.undone.list = step.done.list = list;
  step.undone.row = undone;
  step.done.row = done;
  return step;
}

std::string StepName(const std::string& what, const std::string& name) {
  constexpr std::size_t kLongestName = 40;  // bytes; a longer one would make the menu too wide
  if (name.size() <= kLongestName) return what + " '" + name + "'";
  return what + " '" + std::string(CutUtf8(name, kLongestName)) + "...'";
}

}  // namespace repvolta
