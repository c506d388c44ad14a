#include "update/MusicListing.h"

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <vector>

#include "base/File.h"
#include "base/Folder.h"
#include "base/ProgramFiles.h"
#include "base/WholeFile.h"

namespace repvolta {
namespace {

/// Ignores the case of ASCII letters, which is enough: no other letter folds to "m" or "p".
bool IsMusicName(std::string_view name) {
  constexpr std::string_view kExtension = ".mp3";
  if (name.size() < kExtension.size()) return false;
  name.remove_prefix(name.size() - kExtension.size());
  return name[0] == '.' && (name[1] | 0x20) == 'm' && (name[2] | 0x20) == 'p' && name[3] == '3';
}

bool IsOneLine(std::string_view text) {
  return text.find('\n') == std::string::npos && text.find('\r') == std::string::npos;
}

/// Adds the music files of a folder to the list and its subfolders to those still to be listed.
/// Unreadable folders are skipped.
void ListFolder(const std::string& folder, WholeFileWriter& list,
                std::vector<std::string>& folders) {
  std::string path = folder.ends_with('/') ? folder : folder + "/";
  const std::size_t start = path.size();
  const bool isOneLine = IsOneLine(path);
  ForEachEntry(folder, [&](std::string_view name, EntryType type) {
    path.replace(start, std::string::npos, name);
    if (type == EntryType::kFolder) {
      folders.push_back(path);
    } else if (isOneLine && IsMusicName(name) && IsOneLine(name) &&
               (type == EntryType::kFile || (type == EntryType::kLink && FileIsReachable(path)))) {
      list.Append(path.append("\n"));
    }
  });
}

}  // namespace

void CompileMusicList(const std::string& musicPath, const std::function<void()>& whileListing) {
  WholeFileWriter list(kMusicList);
  std::vector<std::string> folders;
  std::error_code error;
  if (!musicPath.empty()) folders.push_back(std::filesystem::absolute(musicPath, error));
  while (!folders.empty()) {
    const std::string folder = std::move(folders.back());
    folders.pop_back();
    ListFolder(folder, list, folders);
    if (whileListing) whileListing();
  }
  list.Commit();
}

}  // namespace repvolta
