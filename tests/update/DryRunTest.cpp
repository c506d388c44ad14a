#include <gtest/gtest.h>

#include "app/Options.h"
#include "app/WorkoutFiles.h"
#include "update/DryRun.h"
#include "update/UpdateFixture.h"

#include "support/SampleDryRun.h"

namespace repvolta {
namespace {

using Severity = PlannedProblem::Severity;

TEST(HasErrors, LooksAtThePlansAndAtWhatConcernsAll) {
  DryRun run = SampleDryRun();
  EXPECT_FALSE(HasErrors(run));
  run.problems = {{Severity::kWarning, ""}};
  run.plans[0].problems = {SampleProblem(Severity::kWarning, "")};
  EXPECT_FALSE(HasErrors(run));
  run.problems[0].severity = Severity::kError;
  EXPECT_TRUE(HasErrors(run));
  run.problems.clear();
  run.plans[0].problems[0].severity = Severity::kError;
  EXPECT_TRUE(HasErrors(run));
}

class PlanUpdatesTest : public UpdateFixture {
 protected:
  void PutWorkout(const std::string& name) {
    state.WorkoutFileName = name;
    ReplaceWorkoutFile(state);
    SaveWorkout(state);
  }

  DryRun Plan(const std::vector<std::string>& workouts) {
    return PlanUpdates(state, workouts, clock.Today(), random);
  }
};

TEST_F(PlanUpdatesTest, PlansTheWorkoutsInTheirOrder) {
  AddNamed("Squat");
  PutWorkout("Monday.RPV");
  state.Workout[0].ExerciseName = "Press";
  PutWorkout("Friday.RPV");

  const DryRun planned = Plan({"Monday.RPV", "Friday.RPV"});

  EXPECT_EQ(planned.day, clock.Today());
  ASSERT_EQ(planned.plans.size(), 2U);
  EXPECT_EQ(planned.plans[0].workout, "Monday.RPV");
  EXPECT_EQ(planned.plans[0].exercises[0].name, "Squat");
  EXPECT_EQ(planned.plans[1].exercises[0].name, "Press");
  EXPECT_TRUE(planned.problems.empty());
}

TEST_F(PlanUpdatesTest, SaysWhichWorkoutIsGoneAndGoesOn) {
  AddNamed("Squat");
  PutWorkout("Monday.RPV");

  const DryRun planned = Plan({"Gone.RPV", "Monday.RPV"});

  EXPECT_EQ(planned.problems,
            (std::vector<DryRunProblem>{{Severity::kError, "Gone.RPV could not be loaded"}}));
  EXPECT_EQ(planned.plans.size(), 1U);
}

TEST_F(PlanUpdatesTest, WarnsOfOptionsThatCannotBeUnderstood) {
  PutFile("options.conf", "odd\n");
  LoadOptions(state);
  const DryRun planned = Plan({});
  ASSERT_EQ(planned.problems.size(), 1U);
  EXPECT_EQ(planned.problems[0].severity, Severity::kWarning);
  EXPECT_EQ(planned.problems[0].text, OddOptions(state.Options));
}

}  // namespace
}  // namespace repvolta
