#pragma once

#include <string>
#include <vector>

namespace repvolta {

/// The names of the exercise types, in name order: the ".lst" files in the folder "exercise",
/// without their extension. The program directory must be current.
std::vector<std::string> ExerciseTypes();

/// The exercise names of a type, one for each line, unchanged but in UTF-8. Throws FileError.
std::vector<std::string> ExerciseNames(const std::string& type);

}  // namespace repvolta
