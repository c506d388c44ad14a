#pragma once

#include "app/ProgramState.h"
#include "platform/RandomNumbers.h"
#include "update/UpdatePlan.h"

namespace repvolta {

/// What an update of the workout in memory would do on that day, by the procedures that the update
/// itself uses. Nothing is written, spoken or changed; with the same random numbers the update
/// draws the same songs. The program directory must be current. Without a workout name the plan is
/// empty. Throws FileError when the program directory's files cannot be looked at.
UpdatePlan PlanUpdate(const ProgramState& state, double day, RandomNumbers& random);

}  // namespace repvolta
