#pragma once

#include <string>
#include <vector>

#include "app/Records.h"
#include "base/Bytes.h"
#include "keeping/Versions.h"

namespace repvolta {

/// A workout of which earlier versions can be restored.
struct KeptWorkout {
  std::string fileName;           // "Monday.RPV": of its file, or of the one that it had
  bool isDeleted;                 // it has no file
  std::vector<Version> versions;  // the newest first
  std::string failure;            // why its versions could not be read, or not all; "" otherwise
};

/// `present`, the file name of a workout, first, also without versions; "" for none. Then all other
/// workouts that have versions, those with a file before the deleted ones, in name order. Versions
/// that bear a workout's name in another case belong to it, too. The program directory must be
/// current. Throws FileError when the folders cannot be read at all.
std::vector<KeptWorkout> ListKeptWorkouts(const std::string& present);

/// What a workout file or a version of one holds.
struct WorkoutContent {
  Bytes bytes;
  std::vector<ExerciseRecord> exercises;  // those in use
  std::string damage;  // "It has 0 bytes instead of 266240."; "" when it is a whole workout
};

WorkoutContent WorkoutContentOf(Bytes bytes);

/// Throws FileError when it cannot be read, or is no longer there. Of a file that is much too large
/// only the beginning is read.
WorkoutContent ReadWorkoutContent(const std::string& path);

}  // namespace repvolta
