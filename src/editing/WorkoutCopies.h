#pragma once

#include "editing/Editor.h"

namespace repvolta {

// Copies and other names of workouts. None of these commands replaces a file. They do nothing
// without a workout, and when the person cancels; they throw FileError.

/// Asks for a name, copies the file of the workout under it, and loads the copy.
void DuplicateWorkout(Editor& editor);

/// Asks for another name; the file and its kept versions get it.
void RenameWorkout(Editor& editor);

/// Asks for a workout and adds a copy of the exercise in the row to its exercises. It may be the
/// workout in memory, too.
void CopyExercise(Editor& editor, int row);

}  // namespace repvolta
