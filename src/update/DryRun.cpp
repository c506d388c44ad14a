#include "update/DryRun.h"

#include <algorithm>

namespace repvolta {
namespace {

template <class Problems>
bool HasError(const Problems& problems) {
  return std::ranges::any_of(problems, [](const auto& problem) {
    return problem.severity == PlannedProblem::Severity::kError;
  });
}

}  // namespace

bool HasErrors(const DryRun& run) {
  return HasError(run.problems) || std::ranges::any_of(run.plans, [](const UpdatePlan& plan) {
           return HasError(plan.problems);
         });
}

}  // namespace repvolta
