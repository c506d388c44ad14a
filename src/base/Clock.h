#pragma once

#include <cmath>

namespace repvolta {

/// Dates are days since 30 December 1899, local time; the fraction is the time of day.
class Clock {
 public:
  virtual ~Clock() = default;

  virtual double Now() const = 0;

  /// Today at midnight.
  double Today() const { return std::floor(Now()); }
};

/// The machine's clock.
class SystemClock : public Clock {
 public:
  double Now() const override;
};

/// The date of a day of the Gregorian calendar. `month` and `day` count from 1.
double DateOf(int year, int month, int day);

}  // namespace repvolta
