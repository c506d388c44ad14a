#pragma once

#include <cstdint>
#include <string>

#include "app/Records.h"

namespace repvolta {

/// The instruction of an exercise as one sentence: "Squat - 1 set, 135lb for 1rep". Throws
/// std::out_of_range for an index outside the slots or more sets than slots.
std::string GenerateTextInstruction(const ExerciseSlots& workout, std::int16_t exerciseIndex);

}  // namespace repvolta
