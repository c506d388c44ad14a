#pragma once

#include <string>
#include <vector>

#include "app/Records.h"

namespace repvolta {

/// What would be different in the songs of an exercise if they were as they were `then`, as lines:
/// "3 songs instead of 2", "only then Long Run.mp3". What they tell is taken over from `now` into
/// `rest`.
std::vector<std::string> MusicDifference(const ExerciseRecord& then, const ExerciseRecord& now,
                                         ExerciseRecord& rest);

}  // namespace repvolta
