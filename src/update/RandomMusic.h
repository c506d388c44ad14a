#pragma once

#include <map>
#include <string>
#include <vector>

#include "update/Program.h"
#include "update/Steps.h"

namespace repvolta {

/// The full paths of drawn songs in the order of their slots, for each exercise number.
using DrawnSongs = std::map<int, std::vector<std::string>>;

/// Fills each exercise that wants random music with drawn files until they exceed its target time.
/// A path that is too long for its field is cut in the record, but complete in the result.
DrawnSongs DrawRandomMusic(Program& program, Steps& steps);

}  // namespace repvolta
