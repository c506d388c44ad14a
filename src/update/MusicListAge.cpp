#include "update/MusicListAge.h"

#include <algorithm>
#include <compare>
#include <exception>
#include <utility>
#include <vector>

#include "base/File.h"
#include "base/FileNames.h"
#include "base/FileStatus.h"
#include "base/Folder.h"
#include "base/Lines.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "update/MusicListing.h"

namespace repvolta {
namespace {

constexpr std::size_t kMostFolders = 1000;
constexpr std::int32_t kMostSongs = 20;

using Time = std::pair<std::int64_t, std::int64_t>;  // seconds, nanoseconds

Time TimeOf(const struct stat& status) { return {status.st_mtim.tv_sec, status.st_mtim.tv_nsec}; }

/// Searches the folders below one, the nearest first, for one of songs that is newer than a time.
class FolderSearch {
 public:
  FolderSearch(Time time, std::string leftOut) : time_(time), leftOut_(std::move(leftOut)) {}

  /// "" when there is none.
  std::string Find(const std::string& top) {
    folders_.push_back(top);
    for (std::size_t next = 0; next < folders_.size(); ++next) {
      std::string folder = folders_[next];
      if (HasSongs(folder) && IsNewer(folder)) return folder;
    }
    return "";
  }

 private:
  /// Appends the folders of the folder, too.
  bool HasSongs(const std::string& folder) {
    bool hasSongs = false;
    ForEachEntry(folder, [&](std::string_view name, EntryType type) {
      if (type != EntryType::kFolder) {
        hasSongs = hasSongs || IsMusicName(name);
      } else if (folders_.size() < kMostFolders) {
        const std::string path = WithoutSeparator(folder).append("/").append(name);
        if (path != leftOut_) folders_.push_back(path);
      }
    });
    return hasSongs;
  }

  bool IsNewer(const std::string& folder) const {
    const auto status = StatusOf(folder, Links::kFollowed);
    return status && TimeOf(*status) > time_;
  }

  Time time_;
  std::string leftOut_;
  std::vector<std::string> folders_;
};

/// Songs from all parts of the list.
std::string FindGoneSong(std::int32_t listed) {
  const std::int32_t count = std::min(listed, kMostSongs);
  std::vector<std::int64_t> numbers;
  numbers.reserve(static_cast<std::size_t>(std::max(count, 0)));
  for (std::int64_t i = 0; i < count; ++i) numbers.push_back(i * listed / count);
  for (const std::string& line : LinesAt(kMusicList, numbers)) {
    std::string song(TrimBlanks(line));
    if (!FileIsReachable(song)) return song;
  }
  return "";
}

std::string FindChange(const ProgramState& state) {
  const auto list = StatusOf(kMusicList, Links::kFollowed);
  if (!list) return "";
  const std::string music = state.Settings.MusicPath.Trimmed();
  if (!music.empty()) {
    FolderSearch search(TimeOf(*list), WithoutSeparator(state.Settings.OutputPath.Trimmed()));
    const std::string folder = search.Find(music);
    if (!folder.empty()) return folder + " has changed";
  }
  const std::string song = FindGoneSong(state.RandomMusicFiles);
  return song.empty() ? "" : song + " is gone";
}

}  // namespace

std::string WhyMusicListIsOld(const ProgramState& state) {
  try {
    return FindChange(state);
  } catch (const std::exception&) {
    // What keeps the list from being read, the drawing will tell.
    return "";
  }
}

}  // namespace repvolta
