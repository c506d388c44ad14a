#include <gtest/gtest.h>

#include "base/Clock.h"

namespace repvolta {
namespace {

TEST(DateOf, CountsDaysSinceTheThirtiethOfDecember1899) {
  EXPECT_EQ(DateOf(1899, 12, 30), 0);
  EXPECT_EQ(DateOf(1900, 1, 1), 2);
  EXPECT_EQ(DateOf(2007, 3, 25), 39166);
  EXPECT_EQ(DateOf(1899, 12, 29), -1);
}

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
