#pragma once

#include <string>

#include "app/ProgramState.h"

namespace repvolta {

/// Gives a slot the values of a new exercise, but for what lies above the limits (quirk 109); the
/// caller then sets its name. Throws std::overflow_error when the default exercise time does not
/// fit; the slot is then as it was.
void InitialiseExercise(ExerciseRecord& exercise, const SettingsRecord& settings, double today);

/// Sets TotalMusicTime of the current exercise to the sum of its stored play times. Throws
/// std::overflow_error when it does not fit, std::out_of_range when there are more files than
/// slots.
void CalculateExerciseMusicTime(ProgramState& state);

}  // namespace repvolta
