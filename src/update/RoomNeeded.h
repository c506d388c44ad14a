#pragma once

#include <cstdint>
#include <optional>

#include "app/ProgramState.h"

namespace repvolta {

/// What the files of an update take on the player.
struct RoomNeeded {
  std::uint64_t bytes = 0;

  bool operator==(const RoomNeeded&) const = default;
};

/// What an update of the workout in memory needs on that day, on a disk that gives room in units of
/// `unit` bytes. The songs count with their exact sizes; instructions and random music are
/// estimated, with a tenth to spare. The program directory must be current. Throws FileError.
RoomNeeded NeededOn(const ProgramState& state, double day, std::uint64_t unit);

/// At least as much, from the play times in the record alone: no file is looked at. Nothing when
/// the play time of a song is not known.
std::optional<RoomNeeded> NeededAtMost(const ProgramState& state);

}  // namespace repvolta
