#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "update/Program.h"
#include "update/Steps.h"

namespace repvolta {

/// The full paths of drawn songs in the order of their slots, for each exercise number.
using DrawnSongs = std::map<int, std::vector<std::string>>;

/// The songs drawn for one exercise.
struct Drawing {
  std::vector<std::string> songs = {};  // full paths
  bool endedEarly = false;              // no more song was found
  std::string missing = {};             // the listed song that is gone; "" when none fits
};

/// Fills one exercise, unless it wants no random music.
std::optional<Drawing> DrawFor(ProgramState& state, int exercise, RandomNumbers& random,
                               Steps& steps);

/// Fills each exercise that wants random music with drawn files until they exceed its target time.
/// A path that is too long for its field is cut in the record, but complete in the result.
DrawnSongs DrawRandomMusic(Program& program, Steps& steps);

}  // namespace repvolta
