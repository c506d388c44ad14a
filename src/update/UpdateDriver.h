#pragma once

#include <optional>
#include <string>

#include "app/ProgressLog.h"
#include "update/Program.h"
#include "update/UpdateHost.h"

namespace repvolta {

/// Turns the workout in memory into a folder for the player: advances what is due, draws random
/// music, saves the workout, and writes numbered instructions, copies of the music and the play
/// list, whose path it returns. Each step that fails becomes a line of the progress log; the update
/// goes on. Does nothing, and returns nothing, without a workout name. Throws UpdateStopped when
/// the person ends the program; its working files are then gone and the workout file is whole.
std::optional<std::string> UpdateCurrentWorkout(Program& program, ProgressLog& log,
                                                UpdateHost& host);

}  // namespace repvolta
