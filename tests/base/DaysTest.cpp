#include <cmath>
#include <gtest/gtest.h>
#include <stdexcept>

#include "base/Days.h"

namespace repvolta {
namespace {

TEST(DateOf, CountsDaysSinceTheThirtiethOfDecember1899) {
  EXPECT_EQ(DateOf(1899, 12, 30), 0);
  EXPECT_EQ(DateOf(1900, 1, 1), 2);
  EXPECT_EQ(DateOf(2007, 3, 25), 39166);
  EXPECT_EQ(DateOf(1899, 12, 29), -1);
}

TEST(WeekdayOf, CountsFromMondayAlsoBeforeDayZero) {
  EXPECT_EQ(WeekdayOf(DateOf(2026, 12, 4)), 4);
  EXPECT_EQ(WeekdayOf(DateOf(2026, 12, 7) + 0.9), 0);
  EXPECT_EQ(WeekdayOf(0), 5);
  EXPECT_EQ(WeekdayOf(-0.5), 4);
  EXPECT_EQ(WeekdayOf(-8), 4);
}

TEST(EnglishDate, NamesWeekdayDayMonthAndYear) {
  EXPECT_EQ(EnglishDate(DateOf(2026, 12, 4) + 0.5), "Fri 4 Dec 2026");
  EXPECT_EQ(EnglishDate(0), "Sat 30 Dec 1899");
}

TEST(EnglishDate, IsRefusedBeyondTheCalendar) {
  EXPECT_THROW(EnglishDate(1e8), std::overflow_error);
  EXPECT_THROW(EnglishDate(std::nan("")), std::overflow_error);
}

TEST(IsoDate, HasYearMonthAndDay) {
  EXPECT_EQ(IsoDate(DateOf(2026, 12, 4) + 0.5), "2026-12-04");
  EXPECT_EQ(IsoDate(-0.5), "1899-12-29");
}

TEST(IsoDate, IsRefusedBeyondTheCalendar) { EXPECT_THROW(IsoDate(1e8), std::overflow_error); }

}  // namespace
}  // namespace repvolta
