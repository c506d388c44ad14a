#pragma once

#include <stdexcept>

#include "app/WorkoutFiles.h"
#include "editing/Editor.h"

namespace repvolta {

/// Fills WorkoutDropBox from the workout folder, in name order, and selects nothing. Throws
/// FileError.
void ListWorkouts(const Editor& editor);

/// The place of a workout file in WorkoutDropBox, or -1.
int PlaceInList(const ProgramState& state, const std::string& fileName);

/// Loads the workout of WorkoutFileName and shows it on both tabs. A message reports a missing file
/// or a damaged workout. Throws FileError when the file cannot be read, and what the tabs throw
/// when the workout cannot be shown as a whole.
WorkoutLoad LoadAndShowWorkout(const Editor& editor);

// The two halves of LoadAndShowWorkout, for callers that continue with a workout that was loaded
// but cannot be shown.
WorkoutLoad LoadOrSayNotFound(const Editor& editor);
void ShowLoadedWorkout(const Editor& editor);

/// The rows on the screen, among them the selected one, are no longer those of the workout.
class WorkoutReplaced : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// If another process has changed the workout's file, loads it again and shows it on both tabs; the
/// current exercise stays. Throws FileError, and WorkoutReplaced when more than values changed: the
/// exercises, the number of sets or the current exercise's music; also when it cannot be shown as a
/// whole.
void ReloadChangedWorkout(const Editor& editor);

}  // namespace repvolta
