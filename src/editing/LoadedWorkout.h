#pragma once

#include <stdexcept>

#include "app/WorkoutFiles.h"
#include "editing/Editor.h"

namespace repvolta {

/// Fills WorkoutDropBox from the workout folder, in name order; nothing is selected then. Throws
/// FileError.
void ListWorkouts(const Editor& editor);

/// Loads the workout of WorkoutFileName and shows it on both tabs. Says so when there is no such
/// file, or when what was loaded is damaged. Throws FileError when it cannot be read, and what the
/// tabs throw when it cannot be shown as a whole.
WorkoutLoad LoadAndShowWorkout(const Editor& editor);

// The two halves: whoever goes on with a workout that cannot be shown must know that it was loaded.
WorkoutLoad LoadOrSayNotFound(const Editor& editor);
void ShowLoadedWorkout(const Editor& editor);

/// The rows that the person saw and selected are no longer those of the workout.
class WorkoutReplaced : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Loads the workout in memory again when another process has changed its file, and shows it on
/// both tabs; the current exercise stays. Throws FileError; or WorkoutReplaced when not only values
/// have grown but exercises, sets or the music of the current exercise are others.
void ReloadChangedWorkout(const Editor& editor);

}  // namespace repvolta
