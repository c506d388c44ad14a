#pragma once

#include "editing/Editor.h"

namespace repvolta {

// The commands that edit the list of exercises. `row` is the one selected in ExerciseList; -1:
// none. Each change is saved; when that fails: docs/decisions/0001-errors.md.

/// Lets an exercise be chosen and adds it behind the others. Throws std::overflow_error when the
/// default exercise time does not fit; then nothing is added.
void AddExerciseButton_Click(Editor& editor);

void EditExerciseNameButton_Click(Editor& editor, int row);
void RemoveExerciseButton_Click(Editor& editor, int row);
void MoveUpExerciseListButton_Click(Editor& editor, int row);

}  // namespace repvolta
