#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

#include "update/Growth.h"

#include "support/ProgramFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Growth : public ProgramFixture {
 protected:
  /// A set of 50 that grows by 2.5 every `frequency` days, last grown `days` ago.
  ExerciseRecord& AddGrowing(float frequency, double days) {
    ExerciseRecord& exercise = AddExercise("Squat");
    AddSet(exercise, 50, 10);
    exercise.SetIncrement1[0] = 2.5F;
    exercise.SetFrequency1[0] = frequency;
    exercise.NextUpdate1[0] = kToday - days;
    return exercise;
  }

  void Grow() {
    Steps steps(screen);
    GrowWorkout(program, steps);
  }
};

TEST_F(Growth, WaitsOneDayMoreThanTheFrequency) {
  ExerciseRecord& exercise = AddGrowing(7, 7);
  Grow();
  EXPECT_EQ(exercise.SetValue1[0], 50);
  EXPECT_EQ(exercise.NextUpdate1[0], kToday - 7);
  EXPECT_THAT(screen.log, IsEmpty());
}

TEST_F(Growth, AddsTheIncrementTheDayAfter) {
  ExerciseRecord& exercise = AddGrowing(7, 8);
  Grow();
  EXPECT_EQ(exercise.SetValue1[0], 52.5F);
  EXPECT_EQ(exercise.NextUpdate1[0], kToday);
  EXPECT_THAT(screen.log, ElementsAre("Updated Field 1 in exercise - Squat"));
}

TEST_F(Growth, AddsOnlyOnceHoweverManyPeriodsWereMissed) {
  ExerciseRecord& exercise = AddGrowing(7, 700);
  Grow();
  Grow();
  EXPECT_EQ(exercise.SetValue1[0], 52.5F);
}

TEST_F(Growth, IsOffWithoutAPositiveFrequency) {
  for (const float frequency : {0.0F, -1.0F, std::numeric_limits<float>::quiet_NaN()}) {
    state.NumberOfExercises = 0;
    ExerciseRecord& exercise = AddGrowing(frequency, 700);
    exercise.NumberOfSets = 1;
    exercise.SetValue1[0] = 50;
    Grow();
    EXPECT_EQ(exercise.SetValue1[0], 50);
    EXPECT_EQ(exercise.NextUpdate1[0], kToday - 700);
  }
  EXPECT_THAT(screen.log, IsEmpty());
}

TEST_F(Growth, JudgesEachFieldOfEachSetByItself) {
  ExerciseRecord& exercise = AddExercise("Squat");
  for (int set = 0; set < 5; ++set) {
    AddSet(exercise, 50, 10);
    exercise.SetFrequency1[set] = exercise.SetFrequency2[set] = 1;
    exercise.SetIncrement2[set] = -1;
  }
  Grow();
  EXPECT_EQ(screen.log.size(), 10U);
  EXPECT_EQ(screen.log[0], "Updated Field 1 in exercise - Squat");
  EXPECT_EQ(screen.log[1], "Updated Field 2 in exercise - Squat");
  EXPECT_EQ(exercise.SetValue1[4], 50);
  EXPECT_EQ(exercise.SetValue2[4], 9);
}

TEST_F(Growth, ComparesWithMidnight) {
  clock.Set(kToday + 0.999);
  ExerciseRecord& exercise = AddGrowing(7, 7.5);
  Grow();
  EXPECT_EQ(exercise.SetValue1[0], 52.5F);
}

TEST_F(Growth, AddsInSinglePrecision) {
  ExerciseRecord& exercise = AddGrowing(1, 2);
  exercise.SetValue1[0] = 16777216;
  exercise.SetIncrement1[0] = 1;
  Grow();
  EXPECT_EQ(exercise.SetValue1[0], 16777216);
}

TEST_F(Growth, KeepsAValueThatWouldOverflowAndGoesOn) {
  ExerciseRecord& exercise = AddGrowing(1, 2);
  exercise.SetValue1[0] = exercise.SetIncrement1[0] = 3e38F;
  Grow();
  EXPECT_EQ(exercise.SetValue1[0], 3e38F);
  EXPECT_THAT(screen.log,
              ElementsAre("ERROR: The number is too large", "Updated Field 1 in exercise - Squat"));
}

TEST_F(Growth, ReportsMoreSetsThanSlotsOnceAndGoesOnWithTheNextExercise) {
  AddGrowing(1, 2).NumberOfSets = 32767;
  AddGrowing(1, 2);
  Grow();
  EXPECT_THAT(screen.log, ElementsAre("Updated Field 1 in exercise - Squat",
                                      "ERROR: Number 17 is outside 0 to 16",
                                      "Updated Field 1 in exercise - Squat"));
}

TEST_F(Growth, MindsNoNegativeNumberOfSets) {
  AddGrowing(1, 2).NumberOfSets = -1;
  Grow();
  EXPECT_THAT(screen.log, IsEmpty());
}

TEST_F(Growth, StaysExactOverTenYears) {
  ExerciseRecord& exercise = AddGrowing(1, 0);
  exercise.SetIncrement1[0] = 0.1F;
  float expected = 50;
  for (int day = 1; day <= 3650; ++day) {
    clock.Set(kToday + day);
    Grow();
    if (day % 2 == 0) expected += 0.1F;
  }
  EXPECT_EQ(exercise.SetValue1[0], expected);
}

}  // namespace
}  // namespace repvolta
