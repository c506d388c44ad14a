#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Days.h"
#include "editing/GrowthAheadView.h"

#include "support/ProgramFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const UpdateDays kMondays{0b0000001};

/// Monday 1 June 2026, from which all days are counted.
const double kMonday = DateOf(2026, 6, 1);

ExerciseRecord WithSets(int sets) {
  ExerciseRecord exercise;
  exercise.ExerciseName = "Squat";
  for (int set = 0; set < sets; ++set) {
    AddSet(exercise, 50, 10);
    exercise.SetIncrement1[set] = 2.5F;
    exercise.SetFrequency1[set] = 7;
    exercise.NextUpdate1[set] = exercise.NextUpdate2[set] = kMonday;
  }
  return exercise;
}

GrowthAheadView View(const ExerciseRecord& exercise, const UpdateDays& updates = kDaily) {
  return GrowthAheadOf(exercise, updates, {kMonday, 28});
}

TEST(GrowthAheadView, HasARowForEachChange) {
  EXPECT_THAT(View(WithSets(1)).rows,
              ElementsAre(GrowthRow{"Tue 9 Jun 2026", "1", "Weight", "50", "52.5"},
                          GrowthRow{"Wed 17 Jun 2026", "1", "Weight", "52.5", "55"},
                          GrowthRow{"Thu 25 Jun 2026", "1", "Weight", "55", "57.5"}));
}

TEST(GrowthAheadView, HasTheStepsOfEachValueThatChanges) {
  ExerciseRecord exercise = WithSets(2);
  exercise.SetFrequency1[0] = 0;
  exercise.SetFrequency2[1] = 20;
  exercise.SetIncrement2[1] = 1;
  const GrowthAheadView view = View(exercise);
  EXPECT_THAT(
      view.curves,
      ElementsAre(
          GrowthCurve{
              "Set 2: Weight",
              1,
              1,
              {{kMonday, 50}, {kMonday + 8, 52.5F}, {kMonday + 16, 55}, {kMonday + 24, 57.5F}}},
          GrowthCurve{"Set 2: Reps", 1, 2, {{kMonday, 10}, {kMonday + 21, 11}}}));
  EXPECT_EQ(view.left, "Weight");
  EXPECT_EQ(view.right, "Reps");
}

TEST(GrowthAheadView, LeavesOutWhatStays) {
  ExerciseRecord exercise = WithSets(1);
  exercise.SetIncrement1[0] = 0;
  const GrowthAheadView view = View(exercise);
  EXPECT_THAT(view.rows, IsEmpty());
  EXPECT_THAT(view.curves, IsEmpty());
  EXPECT_THAT(view.advice, ElementsAre("Weight stays 50: the increment is 0."));
}

TEST(GrowthAheadView, AdvisesOnceForAllSetsThatAreAlike) {
  EXPECT_THAT(View(WithSets(3), kMondays).advice,
              ElementsAre("Weight: \"every 7 days\" with updates on Mondays means every other "
                          "Monday; 6 would mean every Monday."));
}

TEST(GrowthAheadView, NamesTheSetsWhereTheyDiffer) {
  ExerciseRecord exercise = WithSets(3);
  exercise.SetFrequency1[1] = 6;
  EXPECT_THAT(
      View(exercise, kMondays).advice,
      ElementsAre("Weight of sets 1 and 3: \"every 7 days\" with updates on Mondays means every "
                  "other Monday; 6 would mean every Monday.",
                  "Weight of set 2: \"every 6 days\" with updates on Mondays means every Monday."));
}

TEST(GrowthAheadView, SaysItsCurvesInWords) {
  ExerciseRecord exercise = WithSets(1);
  exercise.SetFrequency2[0] = 20;
  exercise.SetIncrement2[0] = 1;
  EXPECT_EQ(View(exercise).Description(),
            "Set 1: Weight from 50 to 57.5 in 3 steps, the last on Thu 25 Jun 2026. Set 1: Reps "
            "from 10 to 11 in 1 step, on Mon 22 Jun 2026.");
}

TEST(GrowthAheadView, ShowsNoMoreSetsThanSlots) {
  ExerciseRecord exercise = WithSets(17);
  exercise.NumberOfSets = 30;
  EXPECT_THAT(View(exercise).curves, SizeIs(17));
}

}  // namespace
}  // namespace repvolta
