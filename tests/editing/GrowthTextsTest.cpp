#include <gtest/gtest.h>

#include "base/Days.h"
#include "editing/GrowthTexts.h"

namespace repvolta {
namespace {

/// Growths on these days after a Monday.
std::string Said(const std::vector<int>& days, const UpdateDays& updates) {
  std::vector<SetGrowth> rhythm;
  for (const int day : days) {
    rhythm.push_back(
        {.set = 0, .field = 1, .from = 1, .to = 2, .day = DateOf(2026, 6, 1) + day, .failure = {}});
  }
  return RhythmText(rhythm, updates);
}

TEST(RhythmText, CountsDaysOfDailyUpdates) {
  EXPECT_EQ(Said({0, 1, 2}, kDaily), "every day");
  EXPECT_EQ(Said({0, 2, 4}, kDaily), "every other day");
  EXPECT_EQ(Said({0, 7, 14}, kDaily), "every 7th day");
}

TEST(RhythmText, CountsWithTheEndingsOfTheNumbers) {
  EXPECT_EQ(Said({0, 3}, kDaily), "every 3rd day");
  EXPECT_EQ(Said({0, 11}, kDaily), "every 11th day");
  EXPECT_EQ(Said({0, 12}, kDaily), "every 12th day");
  EXPECT_EQ(Said({0, 21}, kDaily), "every 21st day");
  EXPECT_EQ(Said({0, 32}, kDaily), "every 32nd day");
  EXPECT_EQ(Said({0, 113}, kDaily), "every 113th day");
}

TEST(RhythmText, NamesTheWeekdayOfEqualWeeks) {
  const UpdateDays updates(0b0001001);
  EXPECT_EQ(Said({0, 7, 14}, updates), "every Monday");
  EXPECT_EQ(Said({3, 17, 31}, updates), "every other Thursday");
  EXPECT_EQ(Said({0, 21, 42}, updates), "every 3rd Monday");
}

TEST(RhythmText, NamesTheWeekdaysThatComeEachWeek) {
  EXPECT_EQ(Said({3, 7, 10, 14}, UpdateDays(0b0011001)), "every Monday and Thursday");
}

TEST(RhythmText, LeavesTheWeekdayOfTheFirstGrowthOutWhereItDoesNotComeAgain) {
  EXPECT_EQ(Said({0, 4, 6, 11, 13}, UpdateDays(0b1110001)), "every Friday and Sunday");
}

TEST(RhythmText, NamesTheNextDatesWhereThereIsNoOrder) {
  EXPECT_EQ(Said({0, 10, 21, 31, 42}, UpdateDays(0b0001001)),
            "on Thu 11 Jun 2026, Mon 22 Jun 2026 and so on");
  EXPECT_EQ(Said({0, 10}, UpdateDays(0b0001001)), "on Thu 11 Jun 2026");
}

TEST(RhythmText, IsEmptyForLessThanTwoGrowths) {
  EXPECT_EQ(Said({}, kDaily), "");
  EXPECT_EQ(Said({0}, kDaily), "");
}

TEST(NameWithSets, CountsSetsFromOne) {
  EXPECT_EQ(NameWithSets({"Weight", false}, {1}).text, "Weight of set 2");
  EXPECT_EQ(NameWithSets({"Reps", true}, {0, 1, 2}).text, "Reps of sets 1, 2 and 3");
}

}  // namespace
}  // namespace repvolta
