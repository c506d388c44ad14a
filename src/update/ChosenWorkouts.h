#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "app/ProgramState.h"

namespace repvolta {

/// Somebody has named a workout that does not exist; what() says which.
class NoSuchWorkout : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The listed workouts that the operands of a command line name, in their order, with or without
/// ".RPV", ignoring case; all that are listed without operands. Throws NoSuchWorkout.
std::vector<std::string> ChosenWorkouts(const ProgramState& state,
                                        const std::vector<std::string>& operands);

}  // namespace repvolta
