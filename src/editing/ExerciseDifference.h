#pragma once

#include <string>
#include <vector>

#include "app/Records.h"

namespace repvolta {

/// What would be different in an exercise if it were as it was `then`: a line for each set and each
/// other part that differs, "NAME, set 2: Weight 52.5 instead of 55". Empty when the records are
/// equal and only then.
std::vector<std::string> ExerciseDifference(const std::string& name, const ExerciseRecord& then,
                                            const ExerciseRecord& now);

}  // namespace repvolta
