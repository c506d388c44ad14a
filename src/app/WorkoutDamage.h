#pragma once

#include <string>

#include "app/ProgramState.h"

namespace repvolta {

/// That the workout in memory holds a count of sets or of music files that there are no slots for:
/// it was read from a file that is none of ours, or no longer. Empty when it does not.
std::string DamageOf(const ProgramState& state);

/// That the workout in memory came from a file of another size than kWorkoutFileSize, and what was
/// done about it. Empty when it did not, when it was saved since, and when there is none.
std::string OddSizeOf(const ProgramState& state);

}  // namespace repvolta
