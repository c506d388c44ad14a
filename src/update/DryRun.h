#pragma once

#include <string>
#include <vector>

#include "update/UpdatePlan.h"

namespace repvolta {

/// Something that will go wrong and is not of a single plan.
struct DryRunProblem {
  PlannedProblem::Severity severity;
  std::string text;  // a sentence

  bool operator==(const DryRunProblem&) const = default;
};

/// What the updates of several workouts would do, one after the other.
struct DryRun {
  double day;  // as Clock gives it
  std::vector<UpdatePlan> plans;
  std::vector<DryRunProblem> problems;

  bool operator==(const DryRun&) const = default;
};

/// Plans the updates of these workouts, files in the workout folder, which are loaded one after the
/// other. Nothing is written. The program directory must be current, with settings and options
/// loaded.
DryRun PlanUpdates(ProgramState& state, const std::vector<std::string>& workouts, double day,
                   RandomNumbers& random);

/// Whether the updates would log an error.
bool HasErrors(const DryRun& run);

}  // namespace repvolta
