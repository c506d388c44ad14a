#pragma once

#include <string>
#include <vector>

namespace repvolta {

/// The names of the exercise lists and of all workouts, each once without regard to case, in name
/// order. The program directory must be current. What cannot be read is left out.
std::vector<std::string> ExerciseNamesInUse();

}  // namespace repvolta
