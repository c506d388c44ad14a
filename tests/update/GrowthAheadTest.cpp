#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

#include "base/Days.h"
#include "update/GrowthAhead.h"

#include "support/ProgramFixture.h"

namespace repvolta {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

const UpdateDays kMondays{0b0000001};
const UpdateDays kMondaysAndThursdays{0b0001001};

/// Monday 1 June 2026.
const double kMonday = DateOf(2026, 6, 1);

/// 50 that grows by 2.5 every `frequency` days, which are counted from `date`.
ExerciseRecord Growing(float frequency, double date) {
  ExerciseRecord exercise;
  AddSet(exercise, 50, 10);
  exercise.SetIncrement1[0] = 2.5F;
  exercise.SetFrequency1[0] = frequency;
  exercise.NextUpdate1[0] = date;
  return exercise;
}

std::vector<double> DaysOf(const std::vector<SetGrowth>& growths) {
  std::vector<double> days;
  for (const SetGrowth& growth : growths) days.push_back(growth.day - kMonday);
  return days;
}

TEST(GrowthAhead, BeginsWithTheFirstDayAndEndsWithTheLast) {
  const ExerciseRecord exercise = Growing(7, kMonday - 8);
  EXPECT_THAT(DaysOf(GrowthAhead(exercise, kDaily, {kMonday, 17})), testing::ElementsAre(0, 8, 16));
  EXPECT_THAT(DaysOf(GrowthAhead(exercise, kDaily, {kMonday, 16})), testing::ElementsAre(0, 8));
}

TEST(GrowthAhead, ContinuesWithTheGrownValue) {
  const auto growths = GrowthAhead(Growing(7, kMonday - 8), kDaily, {kMonday, 9});
  ASSERT_THAT(growths, SizeIs(2));
  EXPECT_EQ(growths[1].from, 52.5F);
  EXPECT_EQ(growths[1].to, 55);
}

TEST(GrowthAhead, GrowsOnUpdateDaysOnly) {
  EXPECT_THAT(DaysOf(GrowthAhead(Growing(7, kMonday), kMondays, {kMonday, 30})),
              testing::ElementsAre(14, 28));
}

TEST(GrowthAhead, IsEmptyWhereNothingGrows) {
  EXPECT_THAT(GrowthAhead(Growing(0, kMonday), kDaily, {kMonday, 400}), IsEmpty());
}

TEST(RhythmOf, LeavesOtherValuesOut) {
  ExerciseRecord exercise = Growing(7, kMonday);
  exercise.SetFrequency2[0] = 1;
  for (const SetGrowth& growth : RhythmOf(exercise, {0, 1}, kDaily, kMonday)) {
    EXPECT_EQ(growth.field, 1);
  }
}

TEST(RhythmOf, LooksTenYearsAhead) {
  EXPECT_THAT(RhythmOf(Growing(1, kMonday + 3640), {0, 1}, kDaily, kMonday),
              testing::Not(IsEmpty()));
  EXPECT_THAT(RhythmOf(Growing(1, kMonday + 3700), {0, 1}, kDaily, kMonday), IsEmpty());
}

TEST(MeanDays, IsNothingForLessThanTwoGrowths) {
  EXPECT_EQ(MeanDays({}), 0);
  EXPECT_EQ(MeanDays(GrowthAhead(Growing(7, kMonday - 8), kDaily, {kMonday, 1})), 0);
}

/// The frequency that is advised instead of this one; 0 when none is.
float Advised(float frequency, const UpdateDays& updates) {
  const auto better = BetterFrequency(Growing(frequency, kMonday), {0, 1}, updates, kMonday);
  return better ? better->days : 0;
}

TEST(BetterFrequency, MakesUpForTheDayOfGrace) {
  EXPECT_EQ(Advised(7, kDaily), 6);
  EXPECT_EQ(Advised(7, kMondays), 6);
  EXPECT_EQ(Advised(14, kMondays), 13);
  EXPECT_EQ(Advised(3, kMondaysAndThursdays), 2);
}

TEST(BetterFrequency, IsNoneWhereNoneComesNearer) {
  EXPECT_EQ(Advised(6, kMondays), 0);
  EXPECT_EQ(Advised(13, kMondays), 0);
  EXPECT_EQ(Advised(1, kDaily), 0);
  EXPECT_EQ(Advised(0, kDaily), 0);
}

TEST(BetterFrequency, NeverLetsAValueGrowMoreOftenThanWanted) {
  EXPECT_EQ(Advised(10, kMondays), 0);
}

TEST(BetterFrequency, TellsWhatGrowsByIt) {
  const auto better = BetterFrequency(Growing(7, kMonday), {0, 1}, kMondays, kMonday);
  ASSERT_TRUE(better);
  EXPECT_EQ(MeanDays(better->rhythm), 7);
}

TEST(TurnOf, IsTheDayOnWhichTheValueReachesOrPassesZero) {
  ExerciseRecord exercise = Growing(6, kMonday);
  exercise.SetIncrement1[0] = -20;
  const auto turn = TurnOf(exercise, {0, 1}, kMondays, kMonday);
  ASSERT_TRUE(turn);
  EXPECT_EQ(turn->to, -10);
  EXPECT_EQ(turn->day, kMonday + 21);
}

TEST(TurnOf, IsTheDayOnWhichTheValueCannotGrowFurther) {
  ExerciseRecord exercise = Growing(6, kMonday);
  exercise.SetIncrement1[0] = 2e38F;
  const auto turn = TurnOf(exercise, {0, 1}, kDaily, kMonday);
  ASSERT_TRUE(turn);
  EXPECT_TRUE(turn->failure);
}

TEST(TurnOf, IsNoneForAValueThatGoesOnGrowing) {
  EXPECT_FALSE(TurnOf(Growing(6, kMonday), {0, 1}, kDaily, kMonday));
}

/// Random exercises, and what real updates make of them.
class RealUpdates : public ProgramFixture {
 protected:
  /// A member of `choices`, drawn.
  template <class Value>
  Value OneOf(const std::vector<Value>& choices) {
    return choices[numbers() % choices.size()];
  }

  ExerciseRecord Drawn() {
    ExerciseRecord exercise;
    exercise.ExerciseName = "Squat";
    exercise.NumberOfSets = OneOf<std::int16_t>({0, 1, 3, 17, 30});
    for (int set = 0; set < static_cast<int>(kSetSlots); ++set) {
      exercise.SetValue1[set] = OneOf<float>({0, 50, 16777216, 3e38F});
      exercise.SetValue2[set] = OneOf<float>({1, 2.5F, 12});
      exercise.SetIncrement1[set] = OneOf<float>({0, 0.1F, 2.5F, -20, 3e38F});
      exercise.SetIncrement2[set] = OneOf<float>({0, 1, -1});
      exercise.SetFrequency1[set] = OneOf<float>({0, 0.5F, 1, 6, 7, 7.5F, -1, 30});
      exercise.SetFrequency2[set] = OneOf<float>({0, 1, 3, 14});
      exercise.NextUpdate1[set] = kToday + OneOf<double>({-400, -8, 0, 0.75, 6, 7, 20});
      exercise.NextUpdate2[set] = kToday + OneOf<double>({-8, 0, 3, 20});
    }
    return exercise;
  }

  /// The exercise after a real update on each update day of the span.
  ExerciseRecord Updated(const ExerciseRecord& exercise, const UpdateDays& updates, int days) {
    state.NumberOfExercises = 1;
    state.Workout[0] = exercise;
    for (int i = 0; i < days; ++i) {
      clock.Set(kToday + i + 0.7);
      if (!updates[static_cast<std::size_t>(WeekdayOf(clock.Today()))]) continue;
      Steps steps(run, run);
      GrowWorkout(program, steps);
    }
    return state.Workout[0];
  }

  std::mt19937 numbers{20260601};  // the same draws in each run
};

TEST_F(RealUpdates, LetGrowWhatWasSeenAhead) {
  for (int round = 0; round < 200; ++round) {
    const ExerciseRecord exercise = Drawn();
    const UpdateDays updates(1 + numbers() % 127);
    const int days = OneOf<int>({1, 28, 84});
    ExerciseRecord ahead = exercise;
    for (const SetGrowth& growth : GrowthAhead(exercise, updates, {kToday, days})) {
      EXPECT_TRUE(updates[static_cast<std::size_t>(WeekdayOf(growth.day))]);
      Apply(growth, ahead);
    }
    EXPECT_EQ(ahead, Updated(exercise, updates, days)) << "round " << round;
  }
}

TEST_F(RealUpdates, TellOfAsManyGrowthsAsWereSeenAhead) {
  const ExerciseRecord exercise = Growing(7, kToday);
  const auto ahead = GrowthAhead(exercise, kDaily, {kToday, 84});
  Updated(exercise, kDaily, 84);
  EXPECT_EQ(run.log.size(), ahead.size());
}

}  // namespace
}  // namespace repvolta
