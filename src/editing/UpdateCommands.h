#pragma once

#include "editing/Editor.h"

namespace repvolta {

/// Updates the workout in memory; says so when there is no output path, does nothing when there is
/// no workout. Throws FileError, UpdateRunning, UpdateStopped.
void UpdateSelectedWorkoutButton_Click(const Editor& editor);

/// Loads and updates every workout of the list in turn, then one more time with an empty name, and
/// says when it is done. A workout that cannot be loaded is told and passed over; one that cannot
/// be shown is told and updated all the same. Throws FileError, UpdateRunning, UpdateStopped.
void UpdateAllWorkoutsButton_Click(const Editor& editor);

}  // namespace repvolta
