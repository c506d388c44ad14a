#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/FolderHandle.h"

namespace repvolta {

/// Files and folders that the deletion of a folder must not include.
struct Keepsakes {
  std::vector<std::string> folders = {};  // with everything in them; "" is none
  std::vector<std::string> songs = {};    // except for names that an update gives
  std::string songList = {};              // a file that lists more songs, one a line; "": none
  /// More songs, which are asked for only when the folder may hold any.
  std::function<std::vector<std::string>()> otherSongs = {};
  /// The files of all workouts: a folder of one is not deleted for another.
  std::vector<std::string> workouts = {};
};

/// True for a name that an update gives to its files: "RV", three or more digits, "-".
bool IsNumberedName(std::string_view name);

/// The first keepsake that is `folder` or lies in it; nothing when there is none. Folders are
/// compared by device and inode, so that another path to one is found too; mounted file systems are
/// not searched. Throws FileError when the disk cannot tell.
std::optional<std::string> FindKeepsake(const FolderHandle& folder, const Keepsakes& keep);

}  // namespace repvolta
