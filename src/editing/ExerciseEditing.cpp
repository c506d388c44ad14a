#include "editing/ExerciseEditing.h"

#include <algorithm>
#include <utility>

#include "app/Exercises.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "editing/AnswerLines.h"
#include "editing/Answers.h"
#include "editing/Undo.h"

namespace repvolta {
namespace {

bool HasWorkout(const ProgramState& state) { return !TrimBlanks(state.WorkoutFileName).empty(); }

/// Makes `change` to the list of exercises, saves and shows it. The step is seen on the first tab,
/// where the exercise of the row `done` is selected then.
void ChangeList(const Editor& editor, const std::string& step, int done,
                const std::function<void(ProgramState&)>& change) {
  StepDescription description{step, PlaceNow(editor, WindowTab::kWorkout),
                              PlaceNow(editor, WindowTab::kWorkout)};
  description.done.exercise = done;
  editor.history->Change(description, [&](const WorkoutAccess& workout) {
    change(workout.State());
    SaveAndShow(editor, workout, [&] { ShowWorkout(editor); });
  });
}

}  // namespace

void AddExerciseButton_Click(Editor& editor) {
  const ProgramState& state = editor.State();
  if (!HasWorkout(state)) return;
  if (state.NumberOfExercises >= MaxExercises) {
    // The slip in this text is quirk 101.
    editor.dialogs.ShowMessage("Maxmimum number of Exercises reached. Cannot add any more.");
    return;
  }
  const std::string name = editor.dialogs.SelectExercise();
  // A name of blanks would mark the slot as not used.
  if (TrimBlanks(name).empty()) return;
  const int added = state.NumberOfExercises;
  ChangeList(editor, StepName("Add Exercise", name), added, [&](ProgramState& workout) {
    InitialiseExercise(workout.Workout[added], workout.Settings, editor.program.clock.Today());
    workout.CurrentExercise = workout.NumberOfExercises;
    ++workout.NumberOfExercises;
    workout.Workout[added].ExerciseName = name;
  });
}

void EditExerciseNameButton_Click(Editor& editor, int row) {
  const ProgramState& state = editor.State();
  if (state.ScreenUpdating || !HasWorkout(state) || state.NumberOfExercises < 1 || row < 0) return;
  const ExerciseRecord& exercise = state.Workout[row];
  const std::optional<std::string> name = ExerciseNameOf(
      editor.dialogs.AskText("Enter a new Exercise Name", "Edit Exercise Name",
                             ExerciseNameHelp(exercise), exercise.ExerciseName.Trimmed()));
  if (!name) return;
  editor.program.SelectExercise(row);
  ChangeList(editor, StepName("Edit Exercise Name", exercise.ExerciseName.Trimmed()), row,
             [&](ProgramState& workout) { workout.Workout[row].ExerciseName = *name; });
}

void RemoveExerciseButton_Click(Editor& editor, int row) {
  const ProgramState& state = editor.State();
  if (state.ScreenUpdating || !HasWorkout(state) || row < 0) return;
  const std::string name = editor.program.SelectAndTrimName(row);
  if (!editor.dialogs.Confirm("Are you SURE you want to DELETE exercise:\r" + name,
                              "Remove Exercise")) {
    return;
  }
  const int next = std::max(0, RowAfterRemoval(row, state.NumberOfExercises - 1));
  ChangeList(editor, StepName("Remove Exercise", name), next, [&](ProgramState& workout) {
    const int count = workout.NumberOfExercises;
    for (int i = row; i < count; ++i) workout.Workout[i] = workout.Workout[i + 1];
    workout.Workout[count].ExerciseName = {};
    --workout.NumberOfExercises;
    workout.CurrentExercise = CheckedInt16(next);
  });
}

void MoveUpExerciseListButton_Click(Editor& editor, int row) {
  const ProgramState& state = editor.State();
  if (state.ScreenUpdating || !HasWorkout(state) || row <= 0) return;
  const std::string name = editor.program.SelectAndTrimName(row);
  if (!editor.dialogs.Confirm("Are you SURE you want to move the exercise up the list?:\r" + name,
                              "Move Exercise")) {
    return;
  }
  ChangeList(editor, StepName("Move Exercise", name), row - 1, [&](ProgramState& workout) {
    std::swap(workout.Workout[row - 1], workout.Workout[row]);
    --workout.CurrentExercise;
  });
}

}  // namespace repvolta
