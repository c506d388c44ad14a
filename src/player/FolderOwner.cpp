#include "player/FolderOwner.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/ProgramFiles.h"
#include "base/SingleByteText.h"
#include "base/Text.h"
#include "mp3/RepvoltaMP3v2.h"
#include "player/Keepsakes.h"
#include "player/PlayList.h"
#include "player/PlayerNames.h"
#include "player/PlayerPlayList.h"

namespace repvolta {
namespace {

/// A text that is equal for all names that a disk may keep as one.
std::u32string KeyOf(const std::string& name) { return FoldCaseFully(MendedName(name)); }

/// The workout's name as a tag's album gives it back.
std::string AlbumOf(const std::string& workout) {
  return FromWindows1252(ToWindows1252(workout + kWorkoutExtension));
}

struct UpdateFiles {
  std::string firstSong;               // the numbered MP3 file with the lowest number
  std::vector<std::string> playLists;  // without their extension
  bool hasNumbered = false;
  bool hasPlayLists = false;  // of both kinds
  bool hasOthers = false;
};

UpdateFiles FilesIn(const FolderHandle& folder) {
  constexpr std::string_view kSongExtension = ".mp3";
  UpdateFiles files;
  const int error = ForEachEntry(folder, ".", [&](std::string_view entry, EntryType type) {
    const std::string name(entry);
    if (type == EntryType::kFile && IsNumberedName(name)) {
      files.hasNumbered = true;
      const bool isFirst = files.firstSong.empty() || name < files.firstSong;
      if (isFirst && name.ends_with(kSongExtension)) files.firstSong = name;
    } else if (type == EntryType::kFile && name.ends_with(kPlayListExtension)) {
      files.hasPlayLists = true;
      files.playLists.push_back(BaseName(name));
    } else if (type == EntryType::kFile && name.ends_with(kPlayerPlayListExtension)) {
      files.hasPlayLists = true;
    } else {
      files.hasOthers = true;
    }
  });
  files.hasOthers = files.hasOthers || error != 0;
  return files;
}

/// The album of the folder's first song; "" when it has none.
std::string AlbumIn(const FolderHandle& folder, const std::string& song) {
  if (song.empty()) return "";
  try {
    cMP3ID3v2 tag;
    tag.SetFileName(folder.Path() + song);
    return tag.Album();
  } catch (const std::exception&) {
    return "";
  }
}

/// True when a disk could keep the workout's folder, or its play list, under this name.
bool MayBeKeptAs(const std::string& workout, const std::string& name) {
  const std::vector<std::string> names = PlayerNames(workout);
  return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

FolderOwners::FolderOwners(const std::string& workout, const std::vector<std::string>& workoutFiles,
                           const std::string& folderName)
    : workout_(workout) {
  for (const std::string& file : workoutFiles) {
    if (BaseName(file) != workout_) others_.push_back(BaseName(file));
  }
  // Where this workout's own file is listed in another spelling, it is no other workout.
  if (others_.size() == workoutFiles.size()) return;
  const std::u32string key = KeyOf(folderName);
  std::copy_if(others_.begin(), others_.end(), std::back_inserter(rivals_),
               [&](const std::string& other) {
                 const std::vector<std::string> names = PlayerNames(other);
                 return std::any_of(names.begin(), names.end(),
                                    [&](const std::string& name) { return KeyOf(name) == key; });
               });
}

std::size_t FolderOwners::Rank() const {
  const auto place = [](const std::string& name) {
    return std::pair(MendedName(name) != name, name);
  };
  return static_cast<std::size_t>(
      std::count_if(rivals_.begin(), rivals_.end(),
                    [&](const std::string& rival) { return place(rival) < place(workout_); }));
}

bool FolderOwners::IsOfAnother(const std::string& folderName) const {
  const std::u32string key = KeyOf(folderName);
  return std::any_of(others_.begin(), others_.end(),
                     [&](const std::string& other) { return KeyOf(other) == key; });
}

FolderOwners::Owner FolderOwners::OwnerByAlbum(const std::string& album) const {
  const bool isThis = album == AlbumOf(workout_);
  const bool isAnothers =
      std::any_of(others_.begin(), others_.end(),
                  [&](const std::string& other) { return album == AlbumOf(other); });
  // An album has one "?" for each letter that its character set lacks.
  if (isThis == isAnothers) return Owner::kUnknown;
  return isThis ? Owner::kThis : Owner::kAnother;
}

FolderOwners::Owner FolderOwners::OwnerOf(const FolderHandle& folder) const {
  const UpdateFiles files = FilesIn(folder);
  const Owner owner = OwnerByAlbum(AlbumIn(folder, files.firstSong));
  if (owner != Owner::kUnknown) return owner;
  // Without an encoder there are no tags. A name that both workouts could get tells nothing.
  for (const std::string& name : files.playLists) {
    const bool isThis = MayBeKeptAs(workout_, name);
    const bool isAnothers =
        std::any_of(rivals_.begin(), rivals_.end(),
                    [&](const std::string& rival) { return MayBeKeptAs(rival, name); });
    if (isThis != isAnothers) return isThis ? Owner::kThis : Owner::kAnother;
  }
  return Owner::kUnknown;
}

bool FolderOwners::IsOfUpdates(const FolderHandle& folder) {
  const UpdateFiles files = FilesIn(folder);
  // An update lists only files that it has written beside the list.
  return !files.hasOthers && (files.hasNumbered || !files.hasPlayLists);
}

}  // namespace repvolta
