#pragma once

#include <string>
#include <vector>

#include "base/FolderHandle.h"

namespace repvolta {

/// Tells whose folder one on the player is. Where a disk cannot hold each name as it is, folders of
/// two workouts may want one name: "Week: 1" and "Week? 1", or "monday" and "Monday".
class FolderOwners {
 public:
  enum class Owner { kThis, kAnother, kUnknown };

  /// `workout` is this workout's name, `workoutFiles` the files of all, with their extension,
  /// `folderName` the name that this workout's folder shall get.
  FolderOwners(const std::string& workout, const std::vector<std::string>& workoutFiles,
               const std::string& folderName);

  /// True when a disk could keep another workout's folder under the same name.
  bool HasRivals() const { return !rivals_.empty(); }

  /// How many of the rivals come before this workout: first those whose names every disk holds.
  std::size_t Rank() const;

  /// True when a disk would keep another workout's folder under this name.
  bool IsOfAnother(const std::string& folderName) const;

  /// Whose update has written the folder: the album of its first numbered song says it, or its play
  /// list. kAnother stands only for workouts that still exist.
  Owner OwnerOf(const FolderHandle& folder) const;

  /// True when the folder holds nothing but what updates write.
  static bool IsOfUpdates(const FolderHandle& folder);

 private:
  Owner OwnerByAlbum(const std::string& album) const;

  std::string workout_;
  std::vector<std::string> others_;  // the other workouts
  std::vector<std::string> rivals_;  // those whose folders could have the same name
};

}  // namespace repvolta
