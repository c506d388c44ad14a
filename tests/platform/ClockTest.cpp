#include <ctime>
#include <gtest/gtest.h>

#include "base/Days.h"
#include "platform/Clock.h"

namespace repvolta {
namespace {

TEST(Clock, KnowsTodayWithoutTheTimeOfDay) {
  struct Evening : Clock {
    double Now() const override { return 39166.75; }
  };
  EXPECT_EQ(Evening().Today(), 39166);
}

/// The local date and time of a moment, by the difference between the local time and that of the
/// zone in which moments are counted.
double LocalDate(std::time_t moment) {
  constexpr double kSecondsPerDay = 86400;
  std::tm local{};
  localtime_r(&moment, &local);
  return DateOf(1970, 1, 1) + static_cast<double>(moment + local.tm_gmtoff) / kSecondsPerDay;
}

TEST(SystemClock, TellsTheLocalTimeToTheSecond) {
  constexpr double kRounding = 1e-7;  // days
  const double before = LocalDate(std::time(nullptr));
  const double now = SystemClock().Now();
  const double after = LocalDate(std::time(nullptr));
  EXPECT_GE(now, before - kRounding);
  EXPECT_LE(now, after + kRounding);
}

}  // namespace
}  // namespace repvolta
