#pragma once

#include "editing/Editor.h"

namespace repvolta {

// The commands that edit the list of exercises. `row` is the selected row of ExerciseList, or -1.
// Each change is saved; docs/decisions/0001-errors.md says what happens when that fails.

/// Asks for an exercise and adds it after the others. Throws std::overflow_error, and adds nothing,
/// when the default exercise time does not fit.
void AddExerciseButton_Click(Editor& editor);

void EditExerciseNameButton_Click(Editor& editor, int row);
void RemoveExerciseButton_Click(Editor& editor, int row);
void MoveUpExerciseListButton_Click(Editor& editor, int row);

}  // namespace repvolta
