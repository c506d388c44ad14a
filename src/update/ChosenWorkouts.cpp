#include "update/ChosenWorkouts.h"

#include <algorithm>

#include "base/ProgramFiles.h"
#include "base/Text.h"

namespace repvolta {
namespace {

std::string FindWorkout(const ProgramState& state, const std::string& operand) {
  for (const std::string& wanted : {operand, operand + std::string(kWorkoutExtension)}) {
    if (std::ranges::count(state.WorkoutNames, wanted) > 0) return wanted;
    for (const std::string& name : state.WorkoutNames) {
      if (FoldCase(name) == FoldCase(wanted)) return name;
    }
  }
  throw NoSuchWorkout("There is no workout " + operand);
}

}  // namespace

std::vector<std::string> ChosenWorkouts(const ProgramState& state,
                                        const std::vector<std::string>& operands) {
  if (operands.empty()) return state.WorkoutNames;
  std::vector<std::string> chosen;
  chosen.reserve(operands.size());
  for (const std::string& operand : operands) chosen.push_back(FindWorkout(state, operand));
  return chosen;
}

}  // namespace repvolta
