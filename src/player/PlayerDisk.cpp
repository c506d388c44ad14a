#include "player/PlayerDisk.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "app/Options.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/FileStatus.h"
#include "base/Folder.h"

namespace repvolta {
namespace {

/// The number of the disk on which the folder lies. The separator at the end makes the system mount
/// what it mounts on use.
std::optional<dev_t> DiskOf(const std::string& folder) {
  try {
    const auto status = StatusOf(folder + "/", Links::kFollowed);
    if (status) return status->st_dev;
  } catch (const FileError&) {
  }
  return std::nullopt;
}

/// Without links, "." and ".."; "" when there is no such folder.
std::string Resolved(const std::string& path) {
  std::error_code error;
  const std::filesystem::path resolved = std::filesystem::canonical(path, error);
  return error ? "" : resolved.string();
}

std::string ParentOf(const std::string& path) { return WithoutSeparator(FolderOf(path)); }

bool IsMounted(const std::string& mountPoint) {
  const auto disk = DiskOf(mountPoint);
  return disk && disk != DiskOf(ParentOf(mountPoint));
}

bool LiesBelow(const std::string& path, const std::string& folder) {
  return path == folder || path.starts_with(folder + "/");
}

}  // namespace

std::optional<std::string> MountPointOf(const std::string& path) {
  const auto disk = DiskOf(path);
  if (!disk) return std::nullopt;
  if (disk == DiskOf("/")) return "";
  std::string mountPoint = Resolved(path);
  if (mountPoint.empty()) return std::nullopt;
  while (mountPoint != "/" && DiskOf(ParentOf(mountPoint)) == disk) {
    mountPoint = ParentOf(mountPoint);
  }
  return mountPoint;
}

std::string WhyPlayerIsMissing(const ProgramState& state) {
  const std::string path = state.Settings.OutputPath.Trimmed();
  try {
    if (!FolderExists(path + "/")) return path + " is not there";
  } catch (const FileError& error) {
    return path + " is not there: " + error.Reason();
  }
  const std::string mountPoint = Get(state.Options, kPlayerMountPoint);
  if (mountPoint.empty() || !LiesBelow(Resolved(path), mountPoint) || IsMounted(mountPoint)) {
    return "";
  }
  return "The player is not mounted at " + mountPoint + ", so " + path +
         " lies on the disk below it";
}

PlayerDisk::PlayerDisk(std::string outputPath)
    : outputPath_(std::move(outputPath)), mountPoint_(MountPointOf(outputPath_)) {}

void PlayerDisk::Remember(ProgramState& state) const {
  if (!mountPoint_ || Get(state.Options, kPlayerMountPoint) == *mountPoint_) return;
  if (MountPointOf(outputPath_) != mountPoint_) return;
  if (mountPoint_->empty()) {
    state.Options.Remove(kPlayerMountPoint.key);
  } else {
    Put(state.Options, kPlayerMountPoint, *mountPoint_);
  }
  SaveOptions(state);
}

}  // namespace repvolta
