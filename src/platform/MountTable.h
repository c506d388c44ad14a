#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace repvolta {

/// Where the system keeps what it knows of disks.
struct SystemFiles {
  std::string mounts = "/proc/self/mountinfo";
  std::string sys = "/sys";
  std::string dev = "/dev";
};

/// One mounted file system.
struct Mount {
  std::string point;   // the folder where it is mounted
  std::string type;    // "vfat"
  std::string source;  // "/dev/sdb1"
  unsigned major = 0;  // of the device; 0 when no disk is behind it
  unsigned minor = 0;

  bool operator==(const Mount&) const = default;
};

/// The lines of a table of mounts, in its order. What is no such line is left out.
std::vector<Mount> MountsIn(std::string_view table);

/// The mounts of this process. No disk is asked, so that a broken one cannot hold up the call.
/// Empty when there is no such table.
std::vector<Mount> ReadMounts(const SystemFiles& files = {});

/// The mount that holds the folder or file `path`, a full path without links; of those at the same
/// place the last one, which hides the others.
std::optional<Mount> MountOf(const std::vector<Mount>& mounts, std::string_view path);

/// True when `path` is `folder` or lies in it; both are full paths.
bool LiesIn(std::string_view path, std::string_view folder);

}  // namespace repvolta
