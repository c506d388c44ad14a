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
              ElementsAre(1));
}

TEST(Thinning, LosesAtTheLimitWhatIsNearestToItsNeighboursForItsAge) {
  EXPECT_THAT(VersionsToDrop(At({kToday - 20, kToday - 10, kToday - 3, kToday - 2, kToday - 1,
                                 kToday - 0.9, kToday, kToday + 0.1},
                                266'240),
                             kToday + 0.2),
              ElementsAre(5));
}

TEST(Thinning, KeepsTheNewestHoweverLargeItIs) {
  EXPECT_THAT(VersionsToDrop(At({kToday, kToday + 0.1}, 3'000'000), kToday), ElementsAre(0));
}

TEST(Thinning, TakesALaterTimeForToday) {
  EXPECT_THAT(VersionsToDrop(At({kToday, kToday + 1000, kToday + 1000.1}), kToday), IsEmpty());
}

TEST(Thinning, OfNothingDropsNothing) { EXPECT_THAT(VersionsToDrop({}, kToday), IsEmpty()); }

/// The ages in days of what is left when a version is added `perDay` times a day.
std::vector<double> AgesAfter(int days, int perDay, std::uint64_t bytes) {
  std::vector<AgedVersion> versions;
  for (int added = 0; added < days * perDay; ++added) {
    const double now = kToday + static_cast<double>(added) / perDay;
    versions.push_back({now, bytes});
    const auto dropped = VersionsToDrop(versions, now);
    for (auto i = dropped.rbegin(); i != dropped.rend(); ++i) {
      versions.erase(versions.begin() + static_cast<std::ptrdiff_t>(*i));
    }
  }
  std::vector<double> ages(versions.size());
  std::ranges::transform(versions, ages.begin(), [&](const AgedVersion& version) {
    return versions.back().time - version.time;
  });
  return ages;
}

bool HasAgeWithin(const std::vector<double>& ages, double youngest, double oldest) {
  return std::ranges::any_of(ages, [&](double age) { return age >= youngest && age <= oldest; });
}

/// A mistake that is found after a week or a month still has a version from before it.
TEST(Thinning, OfWholeWorkoutsReachesBackForWeeksHoweverOftenOneIsKept) {
  for (const int perDay : {1, 2, 20}) {
    for (const int days : {60, 200, 800}) {
      SCOPED_TRACE(std::to_string(perDay) + " a day for " + std::to_string(days) + " days");
      const std::vector<double> ages = AgesAfter(days, perDay, 266'240);
      EXPECT_EQ(ages.size(), 7U);
      EXPECT_TRUE(HasAgeWithin(ages, 0.5, 2.5));
      EXPECT_TRUE(HasAgeWithin(ages, 3, 8.5));
      EXPECT_TRUE(HasAgeWithin(ages, 9, 31));
      EXPECT_TRUE(HasAgeWithin(ages, 31, 366));
    }
  }
}

/// However often it is done, one version a period stays: nobody loses a week by updating daily.
TEST(Thinning, DoneDailyForTwoYearsLeavesSomethingOfEachWeekOfTheLastOne) {
  const std::vector<double> ages = AgesAfter(730, 1, kSmall);
  for (int week = 52; week >= 2; --week) {
    EXPECT_TRUE(HasAgeWithin(ages, 7 * week - 13, 7 * week)) << week;
  }
  EXPECT_LT(ages.size(), 31U + 54U);
}

}  // namespace
}  // namespace repvolta
