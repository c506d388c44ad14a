#include "editing/FindMusic.h"

#include <algorithm>
#include <utility>

#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/Text.h"
#include "update/MusicListing.h"

namespace repvolta {
namespace {

/// Sorts the files of a folder before those of a folder with a longer name: "A/1" before "A 2/1".
std::u32string OrderKey(const std::string& path) {
  std::u32string key = FoldCase(path);
  std::ranges::replace(key, U'/', U'\0');
  return key;
}

void FindInFolder(const std::string& folder, const std::function<void()>& whileSearching,
                  FoundMusic& found) {
  const std::size_t before = found.songs.size() + found.failures.size();
  SearchMusic(folder, {.takeSong = [&](const std::string& song) { found.songs.push_back(song); },
                       .takeUnreadable =
                           [&](const std::string& unreadable, int error) {
                             found.failures.emplace_back(
                                 FileError(unreadable, "could not be read", error).what());
                           },
                       .whileSearching = whileSearching});
  if (found.songs.size() + found.failures.size() == before) found.noMusic.push_back(folder + "/");
}

void FindIn(const std::string& path, const std::function<void()>& whileSearching,
            FoundMusic& found) {
  try {
    if (FolderExists(path)) {
      FindInFolder(path, whileSearching, found);
    } else {
      (IsMusicName(path) ? found.songs : found.noMusic).push_back(path);
    }
  } catch (const FileError& error) {
    found.failures.emplace_back(error.what());
  }
}

}  // namespace

std::vector<std::string> InNameOrder(const std::vector<std::string>& paths) {
  std::vector<std::pair<std::u32string, std::string>> keyed;
  keyed.reserve(paths.size());
  for (const std::string& path : paths) keyed.emplace_back(OrderKey(path), path);
  std::ranges::sort(keyed);
  keyed.erase(std::unique(keyed.begin(), keyed.end()), keyed.end());
  std::vector<std::string> sorted;
  sorted.reserve(keyed.size());
  for (auto& [key, path] : keyed) sorted.push_back(std::move(path));
  return sorted;
}

FoundMusic FindMusic(const std::vector<std::string>& paths,
                     const std::function<void()>& whileSearching) {
  FoundMusic found;
  for (const std::string& path : paths) {
    FindIn(WithoutSeparator(path), whileSearching, found);
  }
  return {.songs = InNameOrder(found.songs),
          .noMusic = InNameOrder(found.noMusic),
          .failures = InNameOrder(found.failures)};
}

}  // namespace repvolta
