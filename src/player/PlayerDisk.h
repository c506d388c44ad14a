#pragma once

#include <optional>
#include <string>

#include "app/ProgramState.h"

namespace repvolta {

/// Where the disk of the folder `path` is mounted; "" when it is the disk of "/". Nothing when
/// there is no such folder, or the disk cannot tell.
std::optional<std::string> MountPointOf(const std::string& path);

/// Why the player is not where the settings say: the output path is no folder, or it lay on a disk
/// of its own at the last update and nothing is mounted there now. "" when it is there.
std::string WhyPlayerIsMissing(const ProgramState& state);

/// The disk that the output path lies on when an update begins.
class PlayerDisk {
 public:
  explicit PlayerDisk(std::string outputPath);

  /// At the end of an update: keeps in the options where the disk is mounted. Keeps what they hold
  /// if the output path was not there at the begin, or lies elsewhere now. Throws FileError.
  void Remember(ProgramState& state) const;

 private:
  std::string outputPath_;
  std::optional<std::string> mountPoint_;
};

}  // namespace repvolta
