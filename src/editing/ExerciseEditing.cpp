#include "editing/ExerciseEditing.h"

#include <algorithm>
#include <utility>

#include "app/Exercises.h"
#include "app/ScreenUpdate.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "editing/AnswerLines.h"
#include "editing/Answers.h"

namespace repvolta {
namespace {

bool HasWorkout(const ProgramState& state) { return !TrimBlanks(state.WorkoutFileName).empty(); }

/// Makes the exercise of a row the current one, trims its stored name and returns it.
std::string SelectAndTrimName(ProgramState& state, int row) {
  state.CurrentExercise = CheckedInt16(row);
  auto& name = state.Workout[row].ExerciseName;
  name = name.Trimmed();
  return name.Text();
}

void Keep(const Editor& editor) {
  SaveAndShow(editor, [&] { ShowWorkout(editor); });
}

}  // namespace

void AddExerciseButton_Click(Editor& editor) {
  ProgramState& state = editor.State();
  if (!HasWorkout(state)) return;
  if (state.NumberOfExercises >= MaxExercises) {
    // The slip in this text is quirk 101.
    editor.dialogs.ShowMessage("Maxmimum number of Exercises reached. Cannot add any more.");
    return;
  }
  const std::string name = editor.dialogs.SelectExercise();
  // A name of blanks would mark the slot as not used.
  if (TrimBlanks(name).empty()) return;
  InitialiseExercise(state.Workout[state.NumberOfExercises], state.Settings,
                     editor.program.clock.Today());
  state.CurrentExercise = state.NumberOfExercises;
  ++state.NumberOfExercises;
  editor.Exercise().ExerciseName = name;
  Keep(editor);
}

void EditExerciseNameButton_Click(Editor& editor, int row) {
  ProgramState& state = editor.State();
  if (state.ScreenUpdating || !HasWorkout(state) || state.NumberOfExercises < 1 || row < 0) return;
  const ExerciseRecord& exercise = state.Workout[row];
  const std::optional<std::string> name = ExerciseNameOf(
      editor.dialogs.AskText("Enter a new Exercise Name", "Edit Exercise Name",
                             ExerciseNameHelp(exercise), exercise.ExerciseName.Trimmed()));
  if (!name) return;
  state.CurrentExercise = CheckedInt16(row);
  editor.Exercise().ExerciseName = *name;
  Keep(editor);
}

void RemoveExerciseButton_Click(Editor& editor, int row) {
  ProgramState& state = editor.State();
  if (state.ScreenUpdating || !HasWorkout(state) || row < 0) return;
  const std::string name = SelectAndTrimName(state, row);
  if (!editor.dialogs.Confirm("Are you SURE you want to DELETE exercise:\r" + name,
                              "Remove Exercise")) {
    return;
  }
  for (int i = row; i < state.NumberOfExercises; ++i) state.Workout[i] = state.Workout[i + 1];
  state.Workout[state.NumberOfExercises].ExerciseName = {};
  --state.NumberOfExercises;
  state.CurrentExercise = CheckedInt16(std::max(0, RowAfterRemoval(row, state.NumberOfExercises)));
  Keep(editor);
}

void MoveUpExerciseListButton_Click(Editor& editor, int row) {
  ProgramState& state = editor.State();
  if (state.ScreenUpdating || !HasWorkout(state) || row <= 0) return;
  const std::string name = SelectAndTrimName(state, row);
  if (!editor.dialogs.Confirm("Are you SURE you want to move the exercise up the list?:\r" + name,
                              "Move Exercise")) {
    return;
  }
  std::swap(state.Workout[row - 1], state.Workout[row]);
  --state.CurrentExercise;
  Keep(editor);
}

}  // namespace repvolta
