#pragma once

#include <cmath>

namespace repvolta {

/// Gives the date as base/Days.h counts it.
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

}  // namespace repvolta
