#pragma once

#include <string>
#include <utility>

#include "app/Records.h"

namespace repvolta {

/// The names of the two values of the exercise's sets; empty for an unknown set type.
using FieldNames = std::pair<std::string, std::string>;
FieldNames FieldNamesOf(const ExerciseRecord& exercise);

/// "03 sets, 05:20 Exercise, 06:15 Music, Random Music"
std::string SummaryLine(const ExerciseRecord& exercise);

/// The days from `now` to the next growth of a value: " 5", "N/A" when it does not grow, "Due" when
/// the day has passed. " 0" can stand on a day when an update does not let it grow yet
/// (quirk 32). Throws std::overflow_error when the day is too far off for 16 bits, or none.
std::string DaysText(float frequency, double nextUpdate, double now);

/// The days of both values, such as " 5, N/A"; "Never" for a day that is too far off.
std::string NextUpdateText(const ExerciseRecord& exercise, int set, double now);

/// A date, counted as Clock does, in the short form of the person's locale. Throws
/// std::overflow_error when there is no such date.
std::string DateText(double date);

}  // namespace repvolta
