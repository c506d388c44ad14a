#include "update/MusicListing.h"

#include <filesystem>
#include <system_error>
#include <vector>

#include "base/File.h"
#include "base/Folder.h"
#include "base/ProgramFiles.h"
#include "base/WholeFile.h"

namespace repvolta {
namespace {

bool IsOneLine(std::string_view text) {
  return text.find('\n') == std::string::npos && text.find('\r') == std::string::npos;
}

/// Takes the songs of a folder, and adds its subfolders to those still to be searched.
void SearchFolder(const std::string& folder, const MusicSearch& search,
                  std::vector<std::string>& folders) {
  std::string path = folder.ends_with('/') ? folder : folder + "/";
  const std::size_t start = path.size();
  const bool takesSongs = !search.takesSongsOf || search.takesSongsOf(path);
  const int error = ForEachEntry(folder, [&](std::string_view name, EntryType type) {
    path.replace(start, std::string::npos, name);
    if (type == EntryType::kFolder) {
      folders.push_back(path);
    } else if (takesSongs && IsMusicName(name) &&
               (type == EntryType::kFile || (type == EntryType::kLink && FileIsReachable(path)))) {
      search.takeSong(path, start);
    }
  });
  if (error != 0 && search.takeUnreadable) search.takeUnreadable(folder, error);
}

}  // namespace

/// Ignores the case of ASCII letters, which is enough: no other letter folds to "m" or "p".
bool IsMusicName(std::string_view name) {
  constexpr std::string_view kExtension = ".mp3";
  if (name.size() < kExtension.size()) return false;
  name.remove_prefix(name.size() - kExtension.size());
  return name[0] == '.' && (name[1] | 0x20) == 'm' && (name[2] | 0x20) == 'p' && name[3] == '3';
}

void SearchMusic(const std::string& folder, const MusicSearch& search) {
  std::vector<std::string> folders = {folder};
  while (!folders.empty()) {
    const std::string next = std::move(folders.back());
    folders.pop_back();
    SearchFolder(next, search, folders);
    if (search.whileSearching) search.whileSearching();
  }
}

void CompileMusicList(const std::string& musicPath, const std::function<void()>& whileListing) {
  WholeFileWriter list(kMusicList);
  std::error_code error;
  if (!musicPath.empty()) {
    const auto listSong = [&](std::string& path, std::size_t name) {
      if (IsOneLine(std::string_view(path).substr(name))) list.Append(path.append("\n"));
    };
    SearchMusic(std::filesystem::absolute(musicPath, error), {.takesSongsOf = IsOneLine,
                                                              .takeSong = listSong,
                                                              .takeUnreadable = {},
                                                              .whileSearching = whileListing});
  }
  list.Commit();
}

}  // namespace repvolta
