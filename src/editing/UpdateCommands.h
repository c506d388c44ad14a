#pragma once

#include "editing/Editor.h"

namespace repvolta {

// Both ask first when the player is not there or has too little room, and change nothing when the
// person cancels.

/// Updates the workout in memory. Without an output path it shows a message instead; without a
/// workout it does nothing. Throws FileError, UpdateRunning, UpdateStopped.
void UpdateSelectedWorkoutButton_Click(const Editor& editor);

/// Loads and updates every workout of the list in turn, then once more with an empty name, and
/// shows a message at the end. A workout that cannot be loaded is reported and skipped; one that
/// cannot be shown is reported and still updated. Throws FileError, UpdateRunning, UpdateStopped.
void UpdateAllWorkoutsButton_Click(const Editor& editor);

}  // namespace repvolta
