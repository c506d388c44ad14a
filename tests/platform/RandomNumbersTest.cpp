#include <gtest/gtest.h>
#include <set>

#include "platform/RandomNumbers.h"

namespace repvolta {
namespace {

TEST(TimerSeededNumbers, AreNeverNegativeAndBelowOne) {
  TimerSeededNumbers random;
  for (int i = 0; i < 100'000; ++i) {
    const double number = random.Next();
    EXPECT_GE(number, 0);
    EXPECT_LT(number, 1);
  }
}

TEST(TimerSeededNumbers, FallInEachTenthAlike) {
  TimerSeededNumbers random;
  int counts[10] = {};
  for (int i = 0; i < 100'000; ++i) ++counts[static_cast<int>(random.Next() * 10)];
  // More than ten times the usual deviation of 95.
  for (const int count : counts) EXPECT_NEAR(count, 10'000, 1'000);
}

TEST(TimerSeededNumbers, BeginAnotherSequenceWithEachSeed) {
  TimerSeededNumbers random;
  std::set<double> first;
  for (int i = 0; i < 20; ++i) {
    random.Seed();
    first.insert(random.Next());
  }
  EXPECT_GT(first.size(), 1U);
}

}  // namespace
}  // namespace repvolta
