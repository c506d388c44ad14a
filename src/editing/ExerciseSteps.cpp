#include "editing/ExerciseSteps.h"

namespace repvolta {
namespace {

void Step(Editor& editor, int step) {
  const ProgramState& state = editor.State();
  const int exercise = state.CurrentExercise + step;
  if (exercise < 0 || exercise >= state.NumberOfExercises) return;
  editor.program.SelectExercise(exercise);
  // A row that was selected for the exercise before must not be taken for one of this exercise.
  editor.screen.SelectSet(-1);
  editor.screen.SelectMusic(-1);
  editor.screen.UpdateExerciseScreen();
  editor.screen.UpdateWorkoutScreen();
}

}  // namespace

void NextExerciseButton_Click(Editor& editor) { Step(editor, 1); }

void PreviousExerciseButton_Click(Editor& editor) { Step(editor, -1); }

}  // namespace repvolta
