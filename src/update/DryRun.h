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

/// Whether the updates would log an error.
bool HasErrors(const DryRun& run);

}  // namespace repvolta
