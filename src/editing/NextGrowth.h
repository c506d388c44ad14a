#pragma once

#include <optional>

#include "update/GrowthAhead.h"

namespace repvolta {

/// The first growth of a value from `today` on, when one updates on these days. Nothing for a value
/// that has no frequency, that does not grow within kYearsAhead, or that stays although its day has
/// come.
std::optional<SetGrowth> NextGrowth(const ExerciseRecord& exercise, SetValue value,
                                    const UpdateDays& updates, double today);

}  // namespace repvolta
