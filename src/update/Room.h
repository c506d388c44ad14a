#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/ProgramState.h"

namespace repvolta {

/// The room on a disk, in bytes. A file takes whole units.
struct DiskRoom {
  std::uint64_t free;
  std::uint64_t unit;

  bool operator==(const DiskRoom&) const = default;
};

/// Nothing when the disk of the folder does not know its room.
std::optional<DiskRoom> RoomOf(const std::string& folder);

/// What the files in the folder take on its disk; 0 when there is no such folder. Links and mounted
/// file systems are left out.
std::uint64_t RoomTakenBy(const std::string& folder);

/// The room on the player once the files of the workout's last update are deleted.
std::optional<DiskRoom> RoomForUpdate(const ProgramState& state);

/// There is less room for an update than it needs; both in bytes.
struct LackOfRoom {
  std::uint64_t needed;
  std::uint64_t room;  // with that of the old files, which are deleted first

  bool operator==(const LackOfRoom&) const = default;
};

/// Whether the updates of these workouts, all in one output path, lack room on that day. Nothing
/// when there is enough, or when it cannot be known. The program directory must be current. As long
/// as the play times promise enough room, only the disk is asked.
std::optional<LackOfRoom> FindLackOfRoom(const std::vector<const ProgramState*>& workouts,
                                         double day);

/// "needs 812 MB, there is room for 300 MB". The second number is always the smaller one.
std::string TextOf(const LackOfRoom& lack);

}  // namespace repvolta
