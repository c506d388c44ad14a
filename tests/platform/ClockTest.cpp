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

TEST(SystemClock, RunsInThisCentury) {
  const double now = SystemClock().Now();
  EXPECT_GT(now, DateOf(2020, 1, 1));
  EXPECT_LT(now, DateOf(2200, 1, 1));
}

}  // namespace
}  // namespace repvolta
