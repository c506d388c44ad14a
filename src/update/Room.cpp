#include "update/Room.h"

#include <exception>
#include <sys/stat.h>
#include <sys/statvfs.h>

#include "base/FileNames.h"
#include "base/FileStatus.h"
#include "base/Folder.h"
#include "player/PlayerNames.h"
#include "update/RoomNeeded.h"

namespace repvolta {
namespace {

constexpr std::uint64_t kMegabyte = 1'000'000;
constexpr std::uint64_t kStatusBlock = 512;  // the unit of st_blocks

std::uint64_t TakenBelow(const std::string& folder, dev_t disk) {
  std::uint64_t taken = 0;
  ForEachEntry(folder, [&](std::string_view name, EntryType /*type*/) {
    const std::string path = std::string(folder).append("/").append(name);
    const auto status = StatusOf(path, Links::kSeen);
    if (!status || status->st_dev != disk) return;
    if (S_ISREG(status->st_mode)) {
      taken += static_cast<std::uint64_t>(status->st_blocks) * kStatusBlock;
    }
    if (S_ISDIR(status->st_mode)) taken += TakenBelow(path, disk);
  });
  return taken;
}

/// What the files of the workout's last update take, under whichever name the disk keeps them.
std::uint64_t RoomTakenByOldFiles(const ProgramState& state) {
  const std::string folder = state.Settings.OutputPath.Trimmed() + "/";
  for (const std::string& name : PlayerNames(BaseName(state.WorkoutFileName))) {
    const std::uint64_t taken = IsFileName(name) ? RoomTakenBy(folder + name) : 0;
    if (taken > 0) return taken;
  }
  return 0;
}

/// False when the play times do not promise that all updates fit.
bool FitsCertainly(const std::vector<const ProgramState*>& workouts, std::uint64_t free) {
  std::uint64_t most = 0;
  for (const ProgramState* workout : workouts) {
    const auto needed = NeededAtMost(*workout);
    if (!needed) return false;
    most += needed->bytes;
  }
  return most <= free;
}

std::optional<LackOfRoom> Compare(const std::vector<const ProgramState*>& workouts, double day) {
  const auto disk = RoomOf(workouts.front()->Settings.OutputPath.Trimmed());
  if (!disk || FitsCertainly(workouts, disk->free)) return std::nullopt;
  LackOfRoom lack{.needed = 0, .room = disk->free};
  for (const ProgramState* workout : workouts) {
    lack.needed += NeededOn(*workout, day, disk->unit).bytes;
  }
  for (const ProgramState* workout : workouts) {
    if (lack.needed <= lack.room) return std::nullopt;
    lack.room += RoomTakenByOldFiles(*workout);
  }
  if (lack.needed <= lack.room) return std::nullopt;
  return lack;
}

}  // namespace

std::optional<DiskRoom> RoomOf(const std::string& folder) {
  struct statvfs disk{};
  // A file system that does not count its room reports zeros.
  if (statvfs(folder.c_str(), &disk) != 0 || disk.f_blocks == 0 || disk.f_frsize == 0) {
    return std::nullopt;
  }
  return DiskRoom{.free = std::uint64_t{disk.f_bavail} * disk.f_frsize, .unit = disk.f_frsize};
}

std::optional<DiskRoom> RoomForUpdate(const ProgramState& state) {
  auto room = RoomOf(state.Settings.OutputPath.Trimmed());
  if (room) room->free += RoomTakenByOldFiles(state);
  return room;
}

std::uint64_t RoomTakenBy(const std::string& folder) {
  const std::string path = WithoutSeparator(folder);
  const auto status = StatusOf(path, Links::kSeen);
  return status && S_ISDIR(status->st_mode) ? TakenBelow(path, status->st_dev) : 0;
}

std::optional<LackOfRoom> FindLackOfRoom(const std::vector<const ProgramState*>& workouts,
                                         double day) {
  if (workouts.empty()) return std::nullopt;
  try {
    return Compare(workouts, day);
  } catch (const std::exception&) {
    // What keeps the files from being looked at, the update itself will report.
    return std::nullopt;
  }
}

std::string TextOf(const LackOfRoom& lack) {
  return "needs " + std::to_string((lack.needed + kMegabyte - 1) / kMegabyte) +
         " MB, there is room for " + std::to_string(lack.room / kMegabyte) + " MB";
}

}  // namespace repvolta
