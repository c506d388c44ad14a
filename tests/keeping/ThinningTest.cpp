#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "keeping/Thinning.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kToday = 46000;  // the first day of a period of seven would be 45997
constexpr std::uint64_t kSmall = 1000;

std::vector<AgedVersion> At(const std::vector<double>& times, std::uint64_t bytes = kSmall) {
  std::vector<AgedVersion> versions;
  versions.reserve(times.size());
  for (const double time : times) versions.push_back({time, bytes});
  return versions;
}

TEST(Thinning, KeepsAllOfTodayAndYesterday) {
  EXPECT_THAT(VersionsToDrop(At({kToday - 1, kToday - 0.9, kToday, kToday + 0.1, kToday + 0.2}),
                             kToday + 0.5),
              IsEmpty());
}

TEST(Thinning, KeepsTheFirstOfADayAfterThat) {
  EXPECT_THAT(VersionsToDrop(At({kToday - 2, kToday - 1.9, kToday - 1.5, kToday}), kToday + 0.5),
              ElementsAre(1, 2));
}

TEST(Thinning, KeepsTheFirstOfAWeekAfterThirtyDays) {
  const double monday = 45500;  // 45500 is 6500 weeks
  EXPECT_THAT(
      VersionsToDrop(At({monday, monday + 3, monday + 6.9, monday + 7, kToday}), monday + 45),
      ElementsAre(1, 2));
}

TEST(Thinning, DropsWhatIsOlderThanAYear) {
  EXPECT_THAT(VersionsToDrop(At({kToday - 366, kToday - 365, kToday}), kToday), ElementsAre(0));
}

TEST(Thinning, KeepsTheNewestHoweverOldItIs) {
  EXPECT_THAT(VersionsToDrop(At({kToday - 2001, kToday - 2000}), kToday), ElementsAre(0));
}

TEST(Thinning, KeepsNoMoreThanTwoMegabytes) {
  EXPECT_THAT(VersionsToDrop(At({kToday, kToday + 0.1, kToday + 0.2}, 800'000), kToday + 0.5),
              ElementsAre(0));
}

TEST(Thinning, KeepsTheNewestHoweverLargeItIs) {
  EXPECT_THAT(VersionsToDrop(At({kToday, kToday + 0.1}, 3'000'000), kToday), ElementsAre(0));
}

TEST(Thinning, TakesALaterTimeForToday) {
  EXPECT_THAT(VersionsToDrop(At({kToday, kToday + 1000, kToday + 1000.1}), kToday), IsEmpty());
}

TEST(Thinning, OfNothingDropsNothing) { EXPECT_THAT(VersionsToDrop({}, kToday), IsEmpty()); }

/// However often it is done, one version a period stays: nobody loses a week by updating daily.
TEST(Thinning, DoneDailyForTwoYearsLeavesSomethingOfEachWeekOfTheLastOne) {
  std::vector<AgedVersion> versions;
  for (int day = 0; day < 730; ++day) {
    const double now = kToday + day;
    versions.push_back({now, kSmall});
    const auto dropped = VersionsToDrop(versions, now);
    for (auto i = dropped.rbegin(); i != dropped.rend(); ++i) {
      versions.erase(versions.begin() + static_cast<std::ptrdiff_t>(*i));
    }
  }
  const double last = kToday + 729;
  for (int week = 52; week >= 2; --week) {
    const double begin = last - 7 * week;
    EXPECT_TRUE(std::ranges::any_of(versions, [&](const AgedVersion& version) {
      return version.time >= begin && version.time < begin + 14;
    })) << last - begin;
  }
  EXPECT_LT(versions.size(), 31U + 54U);
}

}  // namespace
}  // namespace repvolta
