#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/WorkoutFiles.h"
#include "keeping/Versions.h"
#include "update/UpdateFixture.h"

namespace repvolta {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::StartsWith;

/// A workout whose weight grows in each update.
class KeptVersionOfUpdate : public UpdateFixture {
 protected:
  KeptVersionOfUpdate() {
    ExerciseRecord& exercise = AddNamed("Squat");
    exercise.NumberOfSets = 1;
    exercise.SetValue1[0] = 50;
    exercise.SetIncrement1[0] = 2.5F;
    exercise.SetFrequency1[0] = 1;
    SaveWorkout(state);
  }
};

TEST_F(KeptVersionOfUpdate, IsTheWorkoutBeforeItGrows) {
  const Bytes before = GetFile("workouts/Monday.RPV");
  Update();
  ASSERT_NE(GetFile("workouts/Monday.RPV"), before);
  const auto versions = VersionsOf("Monday.RPV");
  ASSERT_EQ(versions.size(), 1U);
  EXPECT_EQ(versions[0].name.before, BeforeWhat::kUpdate);
  EXPECT_EQ(GetFile(versions[0].path), before);
}

TEST_F(KeptVersionOfUpdate, IsNotKeptAgainWhenNothingHasChanged) {
  Update();
  Update();
  Update();
  EXPECT_EQ(VersionsOf("Monday.RPV").size(), 2U);
}

TEST_F(KeptVersionOfUpdate, ThatIsNotPossibleIsAWarningAndCostsNoUpdate) {
  PutFile("versions", "in the way");
  Update();
  EXPECT_THAT(run.log,
              Contains(AllOf(StartsWith("WARNING: No earlier version of the workout is kept: "),
                             HasSubstr("versions"))));
  EXPECT_EQ(run.log.back(), "UPDATE COMPLETE.");
  EXPECT_EQ(state.Workout[0].SetValue1[0], 52.5F);
}

}  // namespace
}  // namespace repvolta
