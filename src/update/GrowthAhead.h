#pragma once

#include <optional>
#include <vector>

#include "app/UpdateDays.h"
#include "update/Growth.h"

namespace repvolta {

// What updates in the days to come would let grow. Nothing but GrowthOn and Apply decides: they are
// called on a copy with the clock put forward. Dates are whole days as Clock gives them.

/// `days` days that begin with `first`.
struct DaySpan {
  double first;
  int days;
};

/// One of the two values of a set; `field` is 1 or 2.
struct SetValue {
  int set;
  int field;
};

/// All growths of an exercise that is updated on every update day of the span, day by day.
std::vector<SetGrowth> GrowthAhead(ExerciseRecord exercise, const UpdateDays& updates,
                                   const DaySpan& span);

inline constexpr int kYearsAhead = 10;

/// The growths of one value from `today` on: as many as show its rhythm, within kYearsAhead.
std::vector<SetGrowth> RhythmOf(const ExerciseRecord& exercise, SetValue value,
                                const UpdateDays& updates, double today);

/// The first growth within kYearsAhead after which the value differs in kind: it passes or reaches
/// zero from above, or stays although its day has come.
std::optional<SetGrowth> TurnOf(const ExerciseRecord& exercise, SetValue value,
                                const UpdateDays& updates, double today);

/// A frequency, and what grows by it.
struct TriedFrequency {
  float days;
  std::vector<SetGrowth> rhythm;
};

/// The frequency that lets the value grow, with these updates, more nearly after as many days as
/// its frequency says, and not more often; nothing when no other does better. Found by trying the
/// week of whole frequencies below its own.
std::optional<TriedFrequency> BetterFrequency(const ExerciseRecord& exercise, SetValue value,
                                              const UpdateDays& updates, double today);

/// The mean of the days between the growths; 0 for less than two.
double MeanDays(const std::vector<SetGrowth>& rhythm);

}  // namespace repvolta
