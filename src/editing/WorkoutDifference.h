#pragma once

#include <string>
#include <vector>

#include "app/Records.h"

namespace repvolta {

// What a version of a workout means to a person. The words are those of the window, and the same in
// every locale.

/// What would be different if the exercises were as they were `then`, exercise by exercise: "Bench
/// Press, set 2: Weight 52.5 instead of 55", "Plank: only then". Exercises are compared by name,
/// wherever they stand; of those whose names are not found, the ones that are alike. Empty when the
/// exercises are equal and only then.
std::vector<std::string> WorkoutDifference(const std::vector<ExerciseRecord>& then,
                                           const std::vector<ExerciseRecord>& now);

/// "3 exercises: Bench Press, Plank and Squat"
std::string ExercisesText(const std::vector<ExerciseRecord>& exercises);

/// What a workout has, exercise by exercise: "Bench Press: 3 sets, 05:20 Exercise, 06:15 Music".
std::vector<std::string> WorkoutLines(const std::vector<ExerciseRecord>& exercises);

}  // namespace repvolta
