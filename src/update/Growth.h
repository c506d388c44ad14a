#pragma once

#include "app/Program.h"
#include "update/Steps.h"

namespace repvolta {

/// Advances every set value of the workout that is due today, one log line each, and sets its date
/// to today.
void GrowWorkout(Program& program, Steps& steps);

}  // namespace repvolta
