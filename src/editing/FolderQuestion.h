#pragma once

#include <string>

namespace repvolta {

/// What a folder is picked for.
struct FolderQuestion {
  /// What the picker says of the folder that is selected.
  enum class Figure { kSongs, kRoom };

  std::string purpose;  // a sentence
  std::string start;    // the folder to begin with, or below the nearest that exists; "": home
  Figure figure;

  bool operator==(const FolderQuestion&) const = default;
};

}  // namespace repvolta
