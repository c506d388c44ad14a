#include "player/Keepsakes.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <set>
#include <system_error>
#include <utility>

#include "base/DeleteFolder.h"
#include "base/File.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/Lines.h"
#include "base/Text.h"
#include "player/PlayList.h"
#include "player/PlayerPlayList.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

bool IsPlayListName(std::string_view name) {
  return name.ends_with(kPlayListExtension) || name.ends_with(kPlayerPlayListExtension);
}

/// The path with links, "." and ".." resolved, as far as it exists.
fs::path Resolved(const std::string& path) {
  std::error_code error;
  fs::path resolved = fs::weakly_canonical(path, error);
  if (error) resolved = fs::absolute(path, error);
  if (error) resolved = path;
  return resolved / "";
}

bool IsOrHolds(const fs::path& folder, const fs::path& path) {
  return std::mismatch(folder.begin(), --folder.end(), path.begin(), path.end()).first ==
         --folder.end();
}

/// The content of an opened folder, without file systems that are mounted in it.
class FolderContent {
 public:
  explicit FolderContent(const FolderHandle& folder)
      : folder_(folder), path_(Resolved(WithoutSeparator(folder.Path()))) {
    Add("");
    LookInto(".");
    while (!pending_.empty()) {
      for (const std::string& name : std::exchange(pending_, {})) LookInto(name);
    }
  }

  /// True when the folder is `path` or contains it.
  bool Holds(const std::string& path) const {
    const fs::path resolved = Resolved(path);
    if (IsOrHolds(path_, resolved)) return true;
    fs::path ancestor = resolved.parent_path();
    while (!IsOneOfFolders(ancestor)) {
      if (!ancestor.has_relative_path()) return false;
      ancestor = ancestor.parent_path();
    }
    return true;
  }

  bool HoldsSong(const std::string& song) const {
    return !IsNumberedName(FileName(song)) && IsTaken(song) &&
           (Holds(FolderOf(song)) || Holds(song));
  }

  /// False when no file in the folder can be a song of the user.
  bool MayHoldSongs() const { return hasUnreadable_ || !otherNames_.empty(); }

  /// False when no file in the folder has this name; case is ignored.
  bool MayHoldName(const std::string& name) const {
    return hasUnreadable_ || otherNames_.contains(FoldCase(name));
  }

 private:
  using Identity = std::pair<std::uint64_t, std::uint64_t>;

  static std::optional<Identity> IdentityOf(const std::string& path) {
    const std::optional<FileStamp> stamp = StampOf(path);
    if (!stamp) return std::nullopt;
    return Identity{stamp->device, stamp->number};
  }

  bool IsOneOfFolders(const fs::path& path) const {
    const std::optional<Identity> identity = IdentityOf(path);
    return identity && folders_.contains(*identity);
  }

  /// Folders are named by their path in the folder.
  void Add(const std::string& name) {
    if (const auto status = folder_.StatusOf(name)) {
      folders_.insert(Identity{status->st_dev, status->st_ino});
    }
  }

  void LookInto(const std::string& name) {
    const std::string place = name == "." ? "" : name + "/";
    const int error = ForEachEntry(folder_, name, [&](std::string_view entry, EntryType type) {
      Take(place + std::string(entry), type);
    });
    // Songs in an unreadable folder can still be looked up by their paths.
    hasUnreadable_ = hasUnreadable_ || error == EACCES;
    if (error != 0 && error != EACCES) {
      throw FileError(WithoutSeparator(folder_.Path() + place), "could not be read", error);
    }
  }

  void Take(const std::string& path, EntryType type) {
    const std::string name = FileName(path);
    if (type == EntryType::kFolder) {
      if (IsMountPoint(folder_, path)) return;
      Add(path);
      pending_.push_back(path);
    } else if (!IsNumberedName(name) && !IsPlayListName(name)) {
      otherNames_.insert(FoldCase(name));
    }
  }

  const FolderHandle& folder_;
  fs::path path_;
  std::vector<std::string> pending_;
  std::set<Identity> folders_;
  std::set<std::u32string> otherNames_;  // neither an update's nor a play list's
  bool hasUnreadable_ = false;
};

std::optional<std::string> FindListedSong(const FolderContent& content, const std::string& list) {
  std::optional<std::string> found;
  if (list.empty() || !FileExists(list)) return found;
  ForEachLine(list, [&](std::string_view line) {
    const std::string song(TrimBlanks(line));
    // The cheap comparison of names comes first: a list may have a hundred thousand songs.
    if (content.MayHoldName(FileName(song)) && content.HoldsSong(song)) found = song;
    return !found;
  });
  return found;
}

}  // namespace

bool IsNumberedName(std::string_view name) {
  constexpr std::string_view kMark = "RV";
  constexpr std::size_t kFewestDigits = 3;
  if (!name.starts_with(kMark)) return false;
  name.remove_prefix(kMark.size());
  const std::size_t digits = name.find_first_not_of("0123456789");
  return digits != std::string_view::npos && digits >= kFewestDigits && name[digits] == '-';
}

std::optional<std::string> FindKeepsake(const FolderHandle& folder, const Keepsakes& keep) {
  const FolderContent content(folder);
  for (const std::string& path : keep.folders) {
    if (!path.empty() && content.Holds(path)) return path;
  }
  if (!content.MayHoldSongs()) return std::nullopt;
  for (const std::string& song : keep.songs) {
    if (content.HoldsSong(song)) return song;
  }
  for (const std::string& song : keep.otherSongs ? keep.otherSongs() : std::vector<std::string>{}) {
    if (content.HoldsSong(song)) return song;
  }
  return FindListedSong(content, keep.songList);
}

}  // namespace repvolta
