#pragma once

#include <string>

#include "app/ProgramState.h"

namespace repvolta {

// Workouts as a table, see docs/formats/csv.md. UTF-8, whatever the texts hold; numbers and dates
// are the same in every locale.

/// The beginning of a table: the mark of UTF-8, and the line with the names of the columns.
std::string CsvHeader();

/// The workout in memory as lines of the table: one a set, one for an exercise without sets, and
/// one for a workout without exercises. `today` is a date as Clock gives it.
std::string CsvLines(const ProgramState& state, double today);

/// The number of lines that CsvLines returns.
int CsvLineCount(const ProgramState& state);

}  // namespace repvolta
