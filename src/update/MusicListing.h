#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace repvolta {

/// True when the name ends in ".mp3" in any case.
bool IsMusicName(std::string_view name);

/// What a search for music reports.
struct MusicSearch {
  std::function<void(const std::string& path)> takeSong;
  std::function<void(const std::string& folder, int error)> takeUnreadable;  // an errno value
  std::function<void()> whileSearching;  // now and then; may throw to end the search
};

/// Searches `folder` and the folders in it, in no order, for files whose name IsMusicName. Links to
/// folders are not followed, except for `folder` itself; links to files are songs, too.
void SearchMusic(const std::string& folder, const MusicSearch& search);

/// Rebuilds the music list, all or nothing: every song below `musicPath`. Folders that cannot be
/// read are skipped, and so are paths with a line break. If the path is empty or not a folder, the
/// list is empty. `whileListing` is called now and then. The program directory must be current.
/// Throws FileError when the list cannot be written.
void CompileMusicList(const std::string& musicPath, const std::function<void()>& whileListing = {});

}  // namespace repvolta
