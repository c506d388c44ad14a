#pragma once

namespace repvolta {

// Dates are days since 30 December 1899, local time; the fraction is the time of day.

/// The date of a day of the Gregorian calendar. `month` and `day` count from 1.
double DateOf(int year, int month, int day);

}  // namespace repvolta
