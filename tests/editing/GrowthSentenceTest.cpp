#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "base/Days.h"
#include "editing/GrowthSentence.h"

#include "support/ProgramFixture.h"

namespace repvolta {
namespace {

const UpdateDays kMondays{0b0000001};
const UpdateDays kMondaysAndThursdays{0b0001001};

/// Saturday 21 November 2026.
const double kSaturday = DateOf(2026, 11, 21);

/// A set of 50 and 10; the weight grows by 2.5, with a frequency that was entered on kSaturday.
ExerciseRecord Growing(float frequency) {
  ExerciseRecord exercise;
  AddSet(exercise, 50, 10);
  exercise.SetIncrement1[0] = 2.5F;
  exercise.SetFrequency1[0] = frequency;
  exercise.NextUpdate1[0] = kSaturday + static_cast<double>(frequency);
  exercise.NextUpdate2[0] = kSaturday;
  return exercise;
}

std::string Said(const ExerciseRecord& exercise, const UpdateDays& updates = kDaily) {
  return GrowthSentence(exercise, 0, updates, kSaturday);
}

TEST(GrowthSentence, SaysWhenAWeightFirstGrowsAndHowItGoesOn) {
  EXPECT_EQ(Said(Growing(6)),
            "Weight first grows on Fri 4 Dec 2026 by 2.5 to 52.5, then every 7th day.");
}

TEST(GrowthSentence, SaysWhatTheUpdateDaysMakeOfIt) {
  EXPECT_EQ(Said(Growing(6), kMondays),
            "Weight first grows on Fri 4 Dec 2026 by 2.5 to 52.5, then every 7th day; updates on "
            "Mondays make it Mon 7 Dec 2026, then every Monday.");
  EXPECT_EQ(Said(Growing(7), kMondays),
            "Weight first grows on Sun 6 Dec 2026 by 2.5 to 52.5, then every 8th day; updates on "
            "Mondays make it Mon 7 Dec 2026, then every other Monday.");
}

TEST(GrowthSentence, LeavesOutTheDateThatStaysTheSameWithTheUpdateDays) {
  ExerciseRecord exercise = Growing(7);
  exercise.NextUpdate1[0] = kSaturday + 8;
  EXPECT_EQ(Said(exercise, kMondays),
            "Weight first grows on Mon 7 Dec 2026 by 2.5 to 52.5, then every 8th day; updates on "
            "Mondays make it every other Monday.");
}

TEST(GrowthSentence, SaysNextForAValueThatIsCountedFromThePast) {
  ExerciseRecord exercise = Growing(6);
  exercise.NextUpdate1[0] = kSaturday - 2;
  EXPECT_EQ(Said(exercise),
            "Weight next grows on Thu 26 Nov 2026 by 2.5 to 52.5, then every 7th day.");
}

TEST(GrowthSentence, SaysThatTheNextUpdateLetsItGrow) {
  ExerciseRecord exercise = Growing(1);
  exercise.NextUpdate1[0] = kSaturday - 100;
  EXPECT_EQ(Said(exercise),
            "Weight grows with the next update by 2.5 to 52.5, then every other day.");
  EXPECT_EQ(Said(exercise, kMondaysAndThursdays),
            "Weight grows with the next update by 2.5 to 52.5, then every other day; updates on "
            "Mondays and Thursdays make it Mon 23 Nov 2026, then every Monday and Thursday.");
}

TEST(GrowthSentence, SaysBothValuesIfBothGrow) {
  ExerciseRecord exercise = Growing(6);
  exercise.SetIncrement2[0] = 1;
  exercise.SetFrequency2[0] = 2;
  EXPECT_EQ(Said(exercise),
            "Weight first grows on Fri 4 Dec 2026 by 2.5 to 52.5, then every 7th day. Reps next "
            "grow on Tue 24 Nov 2026 by 1 to 11, then every 3rd day.");
}

TEST(GrowthSentence, SaysThatAValueFallsAndWhenItIsZero) {
  ExerciseRecord exercise = Growing(6);
  exercise.SetIncrement1[0] = -25;
  EXPECT_EQ(Said(exercise),
            "Weight first falls on Fri 4 Dec 2026 by 25 to 25, then every 7th day; it is 0 on Fri "
            "11 Dec 2026.");
}

TEST(GrowthSentence, SaysWhenAValueIsBelowZero) {
  ExerciseRecord exercise = Growing(6);
  exercise.SetIncrement1[0] = -30;
  EXPECT_EQ(Said(exercise, kMondays),
            "Weight first falls on Fri 4 Dec 2026 by 30 to 20, then every 7th day; updates on "
            "Mondays make it Mon 7 Dec 2026, then every Monday; it is below 0 from Mon 14 Dec 2026 "
            "on.");
}

TEST(GrowthSentence, SaysWhenAValueBecomesTooLarge) {
  ExerciseRecord exercise = Growing(6);
  exercise.SetIncrement1[0] = 3e38F;
  EXPECT_EQ(Said(exercise),
            "Weight first grows on Fri 4 Dec 2026 by 3e+38 to 3e+38, then every 7th day; it stays "
            "3e+38 from Fri 11 Dec 2026 on.");
  exercise.SetValue1[0] = 3e38F;
  EXPECT_EQ(Said(exercise), "Weight stays 3e+38: with 3e+38 more it would be too large.");
}

TEST(GrowthSentence, SaysThatAnIncrementIsTooSmallToCount) {
  ExerciseRecord exercise = Growing(6);
  exercise.SetValue1[0] = 16777216;
  exercise.SetIncrement1[0] = 1;
  EXPECT_EQ(Said(exercise),
            "Weight stays 1.677722e+07: an increment of 1 does not change so large a number.");
}

TEST(GrowthSentence, SaysThatTheIncrementIsMissing) {
  ExerciseRecord exercise = Growing(6);
  exercise.SetIncrement1[0] = 0;
  EXPECT_EQ(Said(exercise), "Weight stays 50: the increment is 0.");
}

TEST(GrowthSentence, SaysThatADateLiesFarInTheFuture) {
  ExerciseRecord exercise = Growing(6);
  exercise.NextUpdate1[0] = DateOf(2087, 1, 1);
  EXPECT_EQ(Said(exercise),
            "Weight does not grow within ten years: the days are counted from Wed 1 Jan 2087; "
            "\"Manually Reset Inc Date\" counts them from today.");
  exercise.NextUpdate1[0] = 1e300;
  EXPECT_EQ(Said(exercise),
            "Weight does not grow within ten years: the days are counted from an impossible date; "
            "\"Manually Reset Inc Date\" counts them from today.");
}

TEST(GrowthSentence, SaysThatAFrequencyIsTooLong) {
  ExerciseRecord exercise = Growing(30000);
  exercise.NextUpdate1[0] = kSaturday;
  EXPECT_EQ(Said(exercise), "Weight does not grow within ten years.");
}

TEST(GrowthSentence, SaysOnlyTheDateOfTheSingleGrowthInTenYears) {
  EXPECT_EQ(Said(Growing(1800)), "Weight first grows on Tue 30 Sep 2036 by 2.5 to 52.5.");
}

TEST(GrowthSentence, SaysNothingOfNumbersThatNeverGrow) {
  EXPECT_EQ(Said(Growing(0)), "");
  EXPECT_EQ(Said(Growing(-1)), "");
  EXPECT_EQ(Said(Growing(std::nanf(""))), "");
  EXPECT_EQ(GrowthSentence(Growing(0), -1, kDaily, kSaturday), "");
}

TEST(GrowthSentence, AsksForASetWhereSomethingGrows) {
  EXPECT_EQ(GrowthSentence(Growing(6), -1, kDaily, kSaturday),
            "Select a set to read here when it grows.");
}

TEST(GrowthSentence, UsesTheNamesOfTheScreen) {
  ExerciseRecord exercise = Growing(6);
  exercise.SetType = kUserDefined;
  exercise.UserField1Name = "Dwarf Tosses";
  EXPECT_EQ(Said(exercise),
            "Dwarf Tosses first grows on Fri 4 Dec 2026 by 2.5 to 52.5, then every 7th day.");
}

TEST(GrowthSentence, TellsTheValuesApartWithoutNames) {
  ExerciseRecord exercise = Growing(6);
  exercise.SetIncrement1[0] = exercise.SetIncrement2[0] = 0;
  exercise.SetFrequency2[0] = 6;
  for (const char* name : {"", "Tosses"}) {
    exercise.SetType = kUserDefined;
    exercise.UserField1Name = exercise.UserField2Name = name;
    EXPECT_EQ(Said(exercise),
              "The first value stays 50: the increment is 0. The second value stays 10: the "
              "increment is 0.");
  }
}

std::string Advised(const ExerciseRecord& exercise, const UpdateDays& updates) {
  return GrowthAdvice(exercise, {0, 1}, updates, kSaturday, ValueNameOf(exercise, 1));
}

TEST(GrowthAdvice, SaysWhichFrequencyLetsTheWeightGrowAsOftenAsMeant) {
  ExerciseRecord exercise = Growing(7);
  exercise.NextUpdate1[0] = kSaturday;
  EXPECT_EQ(Advised(exercise, kMondays),
            "Weight: \"every 7 days\" with updates on Mondays means every other Monday; 6 would "
            "mean every Monday.");
  EXPECT_EQ(Advised(exercise, kDaily),
            "Weight: \"every 7 days\" with daily updates means every 8th day; 6 would mean every "
            "7th day.");
}

TEST(GrowthAdvice, SaysHowTheFirstWaitCanBeShortened) {
  EXPECT_EQ(Advised(Growing(6), kMondays),
            "Weight: \"every 6 days\" with updates on Mondays means every Monday. First on Mon 7 "
            "Dec 2026; \"Manually Reset Inc Date\" would make it Mon 30 Nov 2026.");
}

TEST(GrowthAdvice, NamesTheNextDatesWhereThereIsNoOrder) {
  ExerciseRecord exercise = Growing(1);
  exercise.NextUpdate1[0] = kSaturday;
  const UpdateDays weekend(0b1110001);
  EXPECT_EQ(Advised(exercise, weekend),
            "Weight: \"every 1 day\" with updates on Mondays, Fridays, Saturdays and Sundays means "
            "every Friday and Sunday.");
  exercise.SetFrequency1[0] = 9;
  EXPECT_EQ(Advised(exercise, kMondaysAndThursdays),
            "Weight: \"every 9 days\" with updates on Mondays and Thursdays means on Mon 14 Dec "
            "2026, Thu 24 Dec 2026 and so on.");
}

TEST(GrowthAdvice, IsEmptyForAValueThatNeverGrows) { EXPECT_EQ(Advised(Growing(0), kMondays), ""); }

}  // namespace
}  // namespace repvolta
