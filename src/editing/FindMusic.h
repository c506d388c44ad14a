#pragma once

#include <functional>
#include <string>
#include <vector>

namespace repvolta {

/// The songs in files and folders that a person has given, and what was no song.
struct FoundMusic {
  std::vector<std::string> songs;     // paths in name order, each once
  std::vector<std::string> noMusic;   // given paths: no MP3 file, or a folder without one
  std::vector<std::string> failures;  // a line for each that could not be searched: what and why

  bool operator==(const FoundMusic&) const = default;
};

/// The paths in name order without regard to case, folder by folder; each once.
std::vector<std::string> InNameOrder(const std::vector<std::string>& paths);

/// The songs among `paths` and in the folders among them, at any depth. What an MP3 file is, and
/// which links are followed, is as for the random music list. `whileSearching` is called now and
/// then and may throw.
FoundMusic FindMusic(const std::vector<std::string>& paths,
                     const std::function<void()>& whileSearching = {});

}  // namespace repvolta
