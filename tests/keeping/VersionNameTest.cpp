#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Days.h"
#include "keeping/VersionName.h"

namespace repvolta {
namespace {

constexpr double kSecond = 1.0 / 86400;

double At(int hour, int minute, int second) {
  return DateOf(2026, 11, 22) + (hour * 3600 + minute * 60 + second) * kSecond;
}

TEST(VersionName, SaysWhenAndBeforeWhat) {
  EXPECT_EQ(FileNameOf({At(5, 32, 6), BeforeWhat::kUpdate}),
            "2026-11-22 05.32.06 before update.RPV");
}

TEST(VersionName, IsReadAgainAsItWas) {
  for (const BeforeWhat before :
       {BeforeWhat::kChange, BeforeWhat::kUpdate, BeforeWhat::kReplacement, BeforeWhat::kDeletion,
        BeforeWhat::kRestore}) {
    for (int second = 0; second < 86400; second += 7919) {
      const double time = At(0, 0, second);
      const auto read = ParseVersionName(FileNameOf({time, before}));
      ASSERT_TRUE(read);
      EXPECT_EQ(read->before, before);
      EXPECT_NEAR(read->time, time, kSecond / 2);
    }
  }
}

TEST(VersionName, RoundsTheLastMomentOfADayToTheNextDay) {
  EXPECT_EQ(FileNameOf({At(23, 59, 59) + 0.9 * kSecond, BeforeWhat::kChange}),
            "2026-11-23 00.00.00 before change.RPV");
}

TEST(VersionName, IsNothingForOtherNames) {
  for (const char* name :
       {"", "Monday.RPV", "2026-11-22 05.32.06 before update", "2026-11-22 05.32.06 before .RPV",
        "2026-11-22 05.32.06 before lunch.RPV", "2026-13-22 05.32.06 before update.RPV",
        "2026-02-30 05.32.06 before update.RPV", "2026-11-22 25.32.06 before update.RPV",
        "2026-11-22 05:32:06 before update.RPV", "2026-11-22 05.32.06 before update.RPV.RPV",
        "xxxx-11-22 05.32.06 before update.RPV"}) {
    EXPECT_EQ(ParseVersionName(name), std::nullopt) << name;
  }
}

}  // namespace
}  // namespace repvolta
