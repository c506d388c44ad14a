#pragma once

#include <string>

#include "app/ProgramState.h"

namespace repvolta {

/// That the workout in memory holds a count of sets or of music files that there are no slots for:
/// it was read from a file that is none of ours, or no longer. Empty when it does not.
std::string DamageOf(const ProgramState& state);

}  // namespace repvolta
