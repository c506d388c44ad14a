#pragma once

#include <string>

#include "editing/Editor.h"

namespace repvolta {

// Undo and Redo of the window. They do nothing when there is no step. They throw what History does,
// and then nothing has changed.

void UndoAction_Trigger(const Editor& editor);
void RedoAction_Trigger(const Editor& editor);

/// Lists the workouts, loads that of the place and shows the place. Without such a workout none is
/// loaded. Throws FileError.
void GoTo(const Editor& editor, const StepPlace& place);

/// Where the window is: the workout in memory with its current exercise, on a tab.
StepPlace PlaceNow(const Editor& editor, WindowTab tab);

// Descriptions of steps of the current exercise.

/// Seen where the exercise is.
StepDescription StepOfExercise(const Editor& editor, const std::string& name);

/// Seen in the row of a list. `done` is the row that is selected afterwards.
StepDescription StepOfRow(const Editor& editor, const std::string& name, StepPlace::List list,
                          int undone, int done);

/// "Remove Exercise 'Bench Press'"; a long name is cut.
std::string StepName(const std::string& what, const std::string& name);

}  // namespace repvolta
