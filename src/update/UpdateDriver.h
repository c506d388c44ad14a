#pragma once

#include <optional>
#include <string>

#include "app/ProgressLog.h"
#include "update/Program.h"
#include "update/UpdateHost.h"

namespace repvolta {

/// Turns the workout in memory into a folder for the player: advances what is due, draws random
/// music, saves the workout, and writes numbered instructions, copies of the music and the play
/// list, whose path it returns. A failing step is logged as a line, and the update continues.
/// Without a workout name it does nothing and returns nothing. Throws UpdateStopped when the person
/// stops it or ends the program; by then the play list and the folder hold the same whole files,
/// the working files are removed, the log says what is missing, and the workout in memory is that
/// of its file: grown, or as before if it was not saved yet.
std::optional<std::string> UpdateCurrentWorkout(Program& program, ProgressLog& log,
                                                UpdateHost& host);

}  // namespace repvolta
