#include <gtest/gtest.h>

#include "update/DryRun.h"

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

}  // namespace
}  // namespace repvolta
