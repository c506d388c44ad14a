#include "update/MusicListing.h"

#include <filesystem>
#include <system_error>
#include <vector>

#include "base/File.h"
#include "base/Folder.h"
#include "base/ProgramFiles.h"
#include "base/WholeFile.h"

namespace repvolta {

/// Ignores the case of ASCII letters, which is enough: no other letter folds to "m" or "p".
bool IsMusicName(std::string_view name) {
  constexpr std::string_view kExtension = ".mp3";
  if (name.size() < kExtension.size()) return false;
  name.remove_prefix(name.size() - kExtension.size());
  return name[0] == '.' && (name[1] | 0x20) == 'm' && (name[2] | 0x20) == 'p' && name[3] == '3';
}

namespace {

bool IsOneLine(std::string_view text) {
  return text.find('\n') == std::string::npos && text.find('\r') == std::string::npos;
}

/// The songs go to `taker`, the subfolders to those still to be searched. A template, because the
/// listing of a large collection calls it for each song.
template <class Taker>
void SearchFolder(const std::string& folder, const Taker& taker,
                  std::vector<std::string>& folders) {
  std::string path = folder.ends_with('/') ? folder : folder + "/";
  const std::size_t start = path.size();
  const bool takesSongs = taker.TakesSongsOf(path);
  const int error = ForEachEntry(folder, [&](std::string_view name, EntryType type) {
    path.replace(start, std::string::npos, name);
    if (type == EntryType::kFolder) {
      folders.push_back(path);
    } else if (takesSongs && IsMusicName(name) && taker.TakesSong(name) &&
               (type == EntryType::kFile || (type == EntryType::kLink && FileIsReachable(path)))) {
      taker.TakeSong(path);
    }
  });
  if (error != 0) taker.TakeUnreadable(folder, error);
}

template <class Taker>
void SearchFolders(const std::string& folder, const Taker& taker) {
  std::vector<std::string> folders = {folder};
  while (!folders.empty()) {
    const std::string next = std::move(folders.back());
    folders.pop_back();
    SearchFolder(next, taker, folders);
    taker.BetweenFolders();
  }
}

/// Writes a line for each song whose path is one.
struct ListTaker {
  WholeFileWriter& list;
  const std::function<void()>& whileListing;

  static bool TakesSongsOf(std::string_view folder) { return IsOneLine(folder); }
  static bool TakesSong(std::string_view name) { return IsOneLine(name); }
  void TakeSong(std::string& path) const { list.Append(path.append("\n")); }
  static void TakeUnreadable(const std::string&, int) {}
  void BetweenFolders() const {
    if (whileListing) whileListing();
  }
};

struct SearchTaker {
  const MusicSearch& search;

  static bool TakesSongsOf(std::string_view) { return true; }
  static bool TakesSong(std::string_view) { return true; }
  void TakeSong(const std::string& path) const { search.takeSong(path); }
  void TakeUnreadable(const std::string& folder, int error) const {
    if (search.takeUnreadable) search.takeUnreadable(folder, error);
  }
  void BetweenFolders() const {
    if (search.whileSearching) search.whileSearching();
  }
};

}  // namespace

void SearchMusic(const std::string& folder, const MusicSearch& search) {
  SearchFolders(folder, SearchTaker{search});
}

void CompileMusicList(const std::string& musicPath, const std::function<void()>& whileListing) {
  WholeFileWriter list(kMusicList);
  std::error_code error;
  if (!musicPath.empty()) {
    SearchFolders(std::filesystem::absolute(musicPath, error), ListTaker{list, whileListing});
  }
  list.Commit();
}

}  // namespace repvolta
