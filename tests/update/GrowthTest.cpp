#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

#include "update/Growth.h"

#include "support/ProgramFixture.h"

namespace repvolta {

/// Prints a growth when a comparison fails.
void PrintTo(const SetGrowth& growth, std::ostream* out) {
  *out << "set " << growth.set << " field " << growth.field << ": " << growth.from << " -> "
       << growth.to << " on " << growth.day << ' ' << growth.failure.value_or("");
}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A set of 50 that grows by 2.5 every `frequency` days, last grown `days` before kToday.
ExerciseRecord Growing(float frequency, double days) {
  ExerciseRecord exercise;
  exercise.ExerciseName = "Squat";
  AddSet(exercise, 50, 10);
  exercise.SetIncrement1[0] = 2.5F;
  exercise.SetFrequency1[0] = frequency;
  exercise.NextUpdate1[0] = kToday - days;
  return exercise;
}

SetGrowth Grown(int set, int field, float from, float to) {
  return {.set = set, .field = field, .from = from, .to = to, .day = kToday, .failure = {}};
}

TEST(Growth, WaitsOneDayMoreThanTheFrequency) {
  EXPECT_THAT(GrowthOn(Growing(7, 7), kToday), IsEmpty());
}

TEST(Growth, AddsTheIncrementTheDayAfter) {
  EXPECT_THAT(GrowthOn(Growing(7, 8), kToday), ElementsAre(Grown(0, 1, 50, 52.5F)));
}

TEST(Growth, AddsOnlyOnceHoweverManyPeriodsWereMissed) {
  EXPECT_THAT(GrowthOn(Growing(7, 700), kToday), ElementsAre(Grown(0, 1, 50, 52.5F)));
}

TEST(Growth, IsOffWithoutAPositiveFrequency) {
  for (const float frequency : {0.0F, -1.0F, std::numeric_limits<float>::quiet_NaN()}) {
    EXPECT_THAT(GrowthOn(Growing(frequency, 700), kToday), IsEmpty()) << frequency;
  }
}

TEST(Growth, LeavesOutWhatStandsBehindTheLastSet) {
  ExerciseRecord exercise = Growing(7, 8);
  AddSet(exercise, 60, 8);
  exercise.SetFrequency1[1] = 1;
  exercise.NextUpdate1[1] = kToday - 8;
  exercise.NumberOfSets = 1;
  EXPECT_THAT(GrowthOn(exercise, kToday), ElementsAre(Grown(0, 1, 50, 52.5F)));
}

TEST(Growth, JudgesEachFieldOfEachSetByItself) {
  ExerciseRecord exercise = Growing(7, 8);
  AddSet(exercise, 60, 8);
  AddSet(exercise, 70, 6);
  exercise.SetIncrement2[0] = -1;
  exercise.SetFrequency2[0] = exercise.SetFrequency2[2] = 1;
  EXPECT_THAT(GrowthOn(exercise, kToday),
              ElementsAre(Grown(0, 1, 50, 52.5F), Grown(0, 2, 10, 9), Grown(2, 2, 6, 6)));
}

TEST(Growth, AddsInSinglePrecision) {
  ExerciseRecord exercise = Growing(1, 2);
  exercise.SetValue1[0] = 16777216;
  exercise.SetIncrement1[0] = 1;
  EXPECT_THAT(GrowthOn(exercise, kToday), ElementsAre(Grown(0, 1, 16777216, 16777216)));
}

TEST(Growth, KeepsAValueThatWouldOverflowAndSaysWhy) {
  ExerciseRecord exercise = Growing(1, 2);
  exercise.SetValue1[0] = exercise.SetIncrement1[0] = 3e38F;
  SetGrowth expected = Grown(0, 1, 3e38F, 3e38F);
  expected.failure = "The number is too large";
  EXPECT_THAT(GrowthOn(exercise, kToday), ElementsAre(expected));
}

TEST(Growth, LeavesOutSetsThatHaveNoSlot) {
  ExerciseRecord exercise = Growing(1, 2);
  exercise.SetFrequency2[16] = 1;
  exercise.NumberOfSets = 32767;
  EXPECT_THAT(GrowthOn(exercise, kToday), ElementsAre(Grown(0, 1, 50, 52.5F), Grown(16, 2, 0, 0)));
}

TEST(Growth, MindsNoNegativeNumberOfSets) {
  ExerciseRecord exercise = Growing(1, 2);
  exercise.NumberOfSets = -1;
  EXPECT_THAT(GrowthOn(exercise, kToday), IsEmpty());
}

TEST(Growth, ChangesNothingButItsValueAndItsDate) {
  ExerciseRecord exercise = Growing(7, 700);
  AddSet(exercise, 60, 8);
  ExerciseRecord expected = exercise;
  expected.SetValue2[1] = 7;
  expected.NextUpdate2[1] = kToday;

  Apply(Grown(1, 2, 8, 7), exercise);

  EXPECT_EQ(exercise, expected);
}

TEST(Growth, SetsTheDateOfAValueThatStays) {
  ExerciseRecord exercise = Growing(1, 2);
  exercise.SetValue1[0] = exercise.SetIncrement1[0] = 3e38F;
  Apply(GrowthOn(exercise, kToday).at(0), exercise);
  EXPECT_EQ(exercise.NextUpdate1[0], kToday);
  EXPECT_EQ(exercise.SetValue1[0], 3e38F);
}

TEST(Growth, StaysExactOverTenYears) {
  ExerciseRecord exercise = Growing(1, 0);
  exercise.SetIncrement1[0] = 0.1F;
  float expected = 50;
  for (int day = 1; day <= 3650; ++day) {
    for (const SetGrowth& growth : GrowthOn(exercise, kToday + day)) Apply(growth, exercise);
    if (day % 2 == 0) expected += 0.1F;
  }
  EXPECT_EQ(exercise.SetValue1[0], expected);
}

class WorkoutGrowth : public ProgramFixture {
 protected:
  ExerciseRecord& Add(const std::string& name, ExerciseRecord exercise) {
    exercise.ExerciseName = name;
    return state.Workout[state.NumberOfExercises++] = exercise;
  }

  void Grow() {
    Steps steps(run, run);
    GrowWorkout(program, steps);
  }
};

TEST_F(WorkoutGrowth, GrowsAndTellsWhatIsDue) {
  ExerciseRecord& squat = Add("Squat", Growing(7, 8));
  squat.SetFrequency2[0] = 7;
  const ExerciseRecord& waiting = Add("Row", Growing(7, 7));
  const ExerciseRecord& dips = Add(" Dips", Growing(1, 2));

  Grow();

  EXPECT_EQ(squat.SetValue1[0], 52.5F);
  EXPECT_EQ(squat.NextUpdate1[0], kToday);
  EXPECT_EQ(waiting.SetValue1[0], 50);
  EXPECT_EQ(waiting.NextUpdate1[0], kToday - 7);
  EXPECT_EQ(dips.SetValue1[0], 52.5F);
  EXPECT_THAT(run.log, ElementsAre("Updated Field 1 in exercise - Squat",
                                   "Updated Field 2 in exercise - Squat",
                                   "Updated Field 1 in exercise -  Dips"));
}

TEST_F(WorkoutGrowth, GrowsOnceADay) {
  const ExerciseRecord& exercise = Add("Squat", Growing(7, 700));
  Grow();
  Grow();
  EXPECT_EQ(exercise.SetValue1[0], 52.5F);
}

TEST_F(WorkoutGrowth, ComparesWithMidnight) {
  clock.Set(kToday + 0.999);
  const ExerciseRecord& exercise = Add("Squat", Growing(7, 7.5));
  Grow();
  EXPECT_EQ(exercise.SetValue1[0], 52.5F);
  EXPECT_EQ(exercise.NextUpdate1[0], kToday);
}

TEST_F(WorkoutGrowth, TellsThatAValueWouldOverflowBeforeItsUpdate) {
  ExerciseRecord& exercise = Add("Squat", Growing(1, 2));
  exercise.SetValue1[0] = exercise.SetIncrement1[0] = 3e38F;
  Grow();
  EXPECT_THAT(run.log,
              ElementsAre("ERROR: The number is too large", "Updated Field 1 in exercise - Squat"));
}

TEST_F(WorkoutGrowth, ReportsMoreSetsThanSlotsOnceAndGoesOnWithTheNextExercise) {
  Add("Squat", Growing(1, 2)).NumberOfSets = 32767;
  Add("Row", Growing(1, 2));
  Grow();
  EXPECT_THAT(run.log, ElementsAre("Updated Field 1 in exercise - Squat",
                                   "ERROR: Number 17 is outside 0 to 16",
                                   "Updated Field 1 in exercise - Row"));
}

TEST_F(WorkoutGrowth, EndsBetweenTwoValuesWhenTheProgramEnds) {
  ExerciseRecord& exercise = Add("Squat", Growing(1, 2));
  exercise.SetFrequency2[0] = 1;
  run.stopRequested = [&] { return !run.log.empty(); };
  EXPECT_THROW(Grow(), UpdateStopped);
  EXPECT_THAT(run.log, ElementsAre("Updated Field 1 in exercise - Squat"));
}

}  // namespace
}  // namespace repvolta
