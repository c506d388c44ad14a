#pragma once

#include "app/Program.h"
#include "update/Steps.h"

namespace repvolta {

/// Fills each exercise that asks for random music with drawn files until its target time is passed.
void DrawRandomMusic(Program& program, Steps& steps);

}  // namespace repvolta
