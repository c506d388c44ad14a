#include "update/DryRun.h"

#include <algorithm>
#include <exception>

#include "app/Options.h"
#include "app/WorkoutFiles.h"
#include "update/PlanUpdate.h"
#include "update/Room.h"

namespace repvolta {
namespace {

using Severity = PlannedProblem::Severity;

/// Why the workout could not be loaded; "" when it was.
std::string LoadOrSayWhy(ProgramState& state, const std::string& name) {
  state.WorkoutFileName = name;
  return LoadWorkout(state) == WorkoutLoad::kLoaded ? "" : name + " could not be loaded";
}

/// What a single plan cannot know: each fits, but not all of them.
void AddLackOfRoom(const std::vector<ProgramState>& workouts, DryRun& run) {
  if (workouts.size() < 2) return;
  std::vector<const ProgramState*> all;
  all.reserve(workouts.size());
  for (const ProgramState& workout : workouts) all.push_back(&workout);
  if (const auto lack = FindLackOfRoom(all, run.day)) {
    run.problems.push_back(
        {Severity::kWarning, "The update of all workouts " + TextOf(*lack) + "."});
  }
}

template <class Problems>
bool HasError(const Problems& problems) {
  return std::ranges::any_of(problems, [](const auto& problem) {
    return problem.severity == PlannedProblem::Severity::kError;
  });
}

}  // namespace

DryRun PlanUpdates(ProgramState& state, const std::vector<std::string>& workouts, double day,
                   RandomNumbers& random) {
  DryRun run{.day = day, .plans = {}, .problems = {}};
  const std::string odd = OddOptions(state.Options);
  if (!odd.empty()) run.problems.push_back({Severity::kWarning, odd});
  std::vector<ProgramState> loaded;
  loaded.reserve(workouts.size());
  for (const std::string& name : workouts) {
    try {
      const std::string failure = LoadOrSayWhy(state, name);
      if (failure.empty()) {
        run.plans.push_back(PlanUpdate(state, day, random));
        loaded.push_back(state);
      } else {
        run.problems.push_back({Severity::kError, failure});
      }
    } catch (const std::exception& error) {
      run.problems.push_back({Severity::kError, error.what()});
    }
  }
  AddLackOfRoom(loaded, run);
  return run;
}

bool HasErrors(const DryRun& run) {
  return HasError(run.problems) || std::ranges::any_of(run.plans, [](const UpdatePlan& plan) {
           return HasError(plan.problems);
         });
}

}  // namespace repvolta
