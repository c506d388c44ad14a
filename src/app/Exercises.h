#pragma once

#include <string>

#include "app/ProgramState.h"

namespace repvolta {

/// Gives a slot the values of a new exercise, except for its name. Sets and songs above the limits
/// stay as they are (quirk 109). Throws std::overflow_error, and leaves the slot unchanged, when
/// the default exercise time does not fit.
void InitialiseExercise(ExerciseRecord& exercise, const SettingsRecord& settings, double today);

/// Sets TotalMusicTime of the current exercise to the sum of its stored play times. Throws
/// std::overflow_error when the sum does not fit, std::out_of_range when there are more files than
/// slots.
void CalculateExerciseMusicTime(ProgramState& state);

}  // namespace repvolta
