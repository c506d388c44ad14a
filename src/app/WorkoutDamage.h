#pragma once

#include <string>

#include "app/ProgramState.h"

namespace repvolta {

/// True when the exercise has a count of sets or music files that no exercise can have.
bool HasImpossibleCounts(const ExerciseRecord& exercise);

/// Says that the workout in memory is damaged, when it has a count of sets or music files that
/// exceeds the slots or is negative: its file is corrupt or not a workout file. Empty otherwise.
std::string DamageOf(const ProgramState& state);

/// Says that the workout's file had another size than kWorkoutFileSize when it was loaded, and what
/// was done about it. Empty when the size was right, after a save, and without a workout.
std::string OddSizeOf(const ProgramState& state);

}  // namespace repvolta
