#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/UpdateDays.h"
#include "base/Days.h"
#include "editing/WorkoutSheet.h"

#include "support/ProgramFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The workout "Monday" with the exercise "Squat", which has one set, on Saturday 21 November 2026.
class WorkoutSheetTest : public testing::Test {
 protected:
  WorkoutSheetTest() {
    state_.WorkoutFileName = "Monday.RPV";
    state_.NumberOfExercises = 1;
    Squat().ExerciseName = "Squat";
    Squat().TargetExerciseTime = 320;
    AddSet(Squat(), 52.5F, 10);
  }

  ExerciseRecord& Squat() { return state_.Workout[0]; }
  WorkoutSheet Sheet() const { return SheetOf(state_, today_); }
  SheetExercise Exercise() const { return Sheet().exercises.at(0); }

  void Grow(float increment, float frequency, double countedFrom) {
    Squat().SetIncrement1[0] = increment;
    Squat().SetFrequency1[0] = frequency;
    Squat().NextUpdate1[0] = countedFrom;
  }

  ProgramState state_;
  const double today_ = DateOf(2026, 11, 21);
};

TEST_F(WorkoutSheetTest, NamesTheWorkoutAndTheDay) {
  EXPECT_EQ(Sheet().name, "Monday");
  EXPECT_EQ(Sheet().date, "Sat 21 Nov 2026");
}

TEST_F(WorkoutSheetTest, CountsTheExercises) {
  state_.NumberOfExercises = 2;
  state_.Workout[1].ExerciseName = "Row";
  ASSERT_EQ(Sheet().exercises.size(), 2U);
  EXPECT_EQ(Sheet().exercises[0].name, "1. Squat");
  EXPECT_EQ(Sheet().exercises[1].name, "2. Row");
}

TEST_F(WorkoutSheetTest, HasARowToTickForEachSetWithItsValues) {
  AddSet(Squat(), 0.5F, -3);
  const std::vector<SheetSet> sets = Exercise().sets;
  ASSERT_EQ(sets.size(), 2U);
  EXPECT_EQ(sets[0].number + ": " + sets[0].first + ", " + sets[0].second, "1: 52.5, 10");
  EXPECT_EQ(sets[1].number + ": " + sets[1].first + ", " + sets[1].second, "2: 0.5, -3");
}

TEST_F(WorkoutSheetTest, HasOneRowToTickForAnExerciseWithoutSets) {
  Squat().NumberOfSets = 0;
  ASSERT_EQ(Exercise().sets.size(), 1U);
  EXPECT_EQ(Exercise().sets[0].first, "");
}

TEST_F(WorkoutSheetTest, NamesTheValuesWithTheirUnits) {
  const auto names = [this](SetTypeNumber type, Flag units) {
    Squat().SetType = type;
    Squat().Units = units;
    return Exercise().firstName + ", " + Exercise().secondName;
  };
  Squat().UserField1Name = "Lanes";
  Squat().UserField2Name = " Breath";
  EXPECT_EQ(names(kWeightAndReps, kFalse), "Weight (kg), Reps");
  EXPECT_EQ(names(kWeightAndReps, kTrue), "Weight (lb), Reps");
  EXPECT_EQ(names(kLevelAndTime, kTrue), "Level, Time (min)");
  EXPECT_EQ(names(kDistanceAndSpeed, kFalse), "Distance (km), Speed (km/h)");
  EXPECT_EQ(names(kDistanceAndSpeed, kTrue), "Distance (mi), Speed (mph)");
  EXPECT_EQ(names(kUserDefined, kFalse), "Lanes, Breath");
}

TEST_F(WorkoutSheetTest, SaysWhenEachValueGrowsNextAndToWhat) {
  Grow(2.5F, 6, today_);
  Squat().SetIncrement2[0] = -1;
  Squat().SetFrequency2[0] = 2;
  Squat().NextUpdate2[0] = today_;
  EXPECT_THAT(Exercise().sets[0].growth,
              ElementsAre("Weight: Sat 28 Nov 2026 to 55", "Reps: Tue 24 Nov 2026 to 9"));
}

TEST_F(WorkoutSheetTest, CountsWithTheDaysOnWhichThePersonUpdates) {
  Grow(2.5F, 6, today_);
  PutUpdateDays(state_.Options, UpdateDays{0b0000001});
  EXPECT_THAT(Exercise().sets[0].growth, ElementsAre("Weight: Mon 30 Nov 2026 to 55"));
}

TEST_F(WorkoutSheetTest, SaysSoWhenTheNextUpdateLetsAValueGrow) {
  Grow(2.5F, 6, today_ - 30);
  EXPECT_THAT(Exercise().sets[0].growth, ElementsAre("Weight: with the next update to 55"));
}

TEST_F(WorkoutSheetTest, SaysNothingOfValuesThatStay) {
  EXPECT_THAT(Exercise().sets[0].growth, IsEmpty());
  Grow(0, 6, today_);
  EXPECT_THAT(Exercise().sets[0].growth, IsEmpty());
  Grow(2.5F, 6, today_ + 10000);
  EXPECT_THAT(Exercise().sets[0].growth, IsEmpty());
}

TEST_F(WorkoutSheetTest, HasTheTimesAndTheSongs) {
  EXPECT_EQ(Exercise().music, "05:20 exercise");
  Squat().NumberOfMusicFiles = 1;
  Squat().TotalMusicTime = 375;
  EXPECT_EQ(Exercise().music, "05:20 exercise, 06:15 music, 1 song");
  Squat().NumberOfMusicFiles = 3;
  Squat().RandomMusic = kTrue;
  EXPECT_EQ(Exercise().music, "05:20 exercise, 06:15 music, 3 songs, random music");
}

TEST_F(WorkoutSheetTest, HasAllSlotsOfAWorkout) {
  state_.NumberOfExercises = kExerciseSlots;
  for (ExerciseRecord& exercise : state_.Workout) exercise.NumberOfSets = kSetSlots;
  ASSERT_EQ(Sheet().exercises.size(), 52U);
  for (const SheetExercise& exercise : Sheet().exercises) EXPECT_EQ(exercise.sets.size(), 17U);
}

TEST_F(WorkoutSheetTest, IsUtf8WhateverTheFileIsCalled) {
  state_.WorkoutFileName = "Sm\xF8r.RPV";
  EXPECT_EQ(Sheet().name, "Smør");
}

}  // namespace
}  // namespace repvolta
