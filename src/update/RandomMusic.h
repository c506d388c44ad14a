#pragma once

#include <map>
#include <string>
#include <vector>

#include "update/Program.h"
#include "update/Steps.h"

namespace repvolta {

/// The whole paths of drawn songs, in the order of their slots, by the number of the exercise.
using DrawnSongs = std::map<int, std::vector<std::string>>;

/// Fills each exercise that asks for random music with drawn files until its target time is passed.
/// A path that is too long for its field is cut there; the result has it whole.
DrawnSongs DrawRandomMusic(Program& program, Steps& steps);

}  // namespace repvolta
