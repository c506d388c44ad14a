#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "keeping/VersionName.h"

namespace repvolta {

/// A kept version of a workout.
struct Version {
  std::string path;  // below the program directory
  VersionName name;
  std::uint64_t bytes;
};

/// The kept versions of the workout file `workoutFileName` ("Monday.RPV"), the oldest first. What
/// else lies in their folder is left out. The program directory must be current. Throws FileError.
std::vector<Version> VersionsOf(const std::string& workoutFileName);

/// Keeps the workout file `path` as it is now, byte for byte, unless there is no such file or its
/// newest version is equal; then drops the versions that are no longer needed. `now` is the time as
/// base/Days.h counts it. Returns false when there is no such version afterwards, because there is
/// no file or it is too large for a workout. Throws FileError; then there is no partial version.
bool KeepVersion(const std::string& path, BeforeWhat before, double now);

/// Gives the kept versions of the workout file `from` to the workout file `to`, beside its own. The
/// program directory must be current. Throws FileError; no version is lost.
void MoveVersions(const std::string& from, const std::string& to);

}  // namespace repvolta
