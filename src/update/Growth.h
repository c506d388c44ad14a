#pragma once

#include <optional>
#include <string>
#include <vector>

#include "update/Program.h"
#include "update/Steps.h"

namespace repvolta {

/// The growth of one value of a set that is due on a day.
struct SetGrowth {
  int set;
  int field;  // 1 or 2
  float from;
  float to;
  double day;                          // when its frequency starts again
  std::optional<std::string> failure;  // why the value stays although its day is set

  bool operator==(const SetGrowth&) const = default;
};

/// The values that are due on a day as Clock gives it: set by set, field 1 before field 2. Sets
/// beyond the slots are left out.
std::vector<SetGrowth> GrowthOn(const ExerciseRecord& exercise, double day);

/// Gives the exercise the grown value and its day. Throws std::out_of_range for a set without slot.
void Apply(const SetGrowth& growth, ExerciseRecord& exercise);

/// Applies all that is due on the day, and returns it.
std::vector<SetGrowth> Grow(ExerciseRecord& exercise, double day);

/// Advances every set value of the workout that is due today, logs a line for each, and sets its
/// date to today.
void GrowWorkout(Program& program, Steps& steps);

}  // namespace repvolta
