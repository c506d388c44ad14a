#pragma once

#include "app/ProgramState.h"
#include "player/Keepsakes.h"

namespace repvolta {

/// What an update of the workout in memory must not delete: the person's folders, and the songs of
/// all workouts and of the random music list.
Keepsakes WhatToKeep(const ProgramState& state);

}  // namespace repvolta
