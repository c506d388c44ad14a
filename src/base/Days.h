#pragma once

#include <string>

namespace repvolta {

// Dates are days since 30 December 1899, local time; the fraction is the time of day.

/// The date of a day of the Gregorian calendar. `month` and `day` count from 1.
double DateOf(int year, int month, int day);

/// 0 is Monday, 6 Sunday.
int WeekdayOf(double date);

/// "Monday" for 0
const char* WeekdayName(int weekday);

/// "Fri 4 Dec 2026", the same in every locale. Throws std::overflow_error when there is no such
/// date.
std::string EnglishDate(double date);

/// "2026-12-04". Throws std::overflow_error when there is no such date.
std::string IsoDate(double date);

}  // namespace repvolta
