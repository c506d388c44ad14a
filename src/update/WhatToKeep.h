#pragma once

#include "app/ProgramState.h"
#include "player/Keepsakes.h"

namespace repvolta {

/// What an update of the workout in memory must not delete together with the folder of the last
/// one.
Keepsakes WhatToKeep(const ProgramState& state);

}  // namespace repvolta
