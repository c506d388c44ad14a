#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/FileError.h"
#include "update/TaggedSource.h"

namespace repvolta {

/// The copy of a song as an update writes it to the player.
struct SongCopy {
  enum class NewTag { kWritten, kNone };

  int seconds;            // kUnknownSeconds when it has no play time
  std::uint64_t bytes;    // with its new tag
  NewTag newTag;          // an unusual file is copied as it is
  std::string errorLine;  // that the update logs of its tags; else ""
};

/// What the copy of `source` to `path` will be; nothing when the song is missing. `newTag` is
/// SizeOfNewTag of the path and the tag, which all songs of an exercise share. Throws FileError
/// when the song cannot be copied.
std::optional<SongCopy> PlanSongCopy(const std::string& source, const std::string& path,
                                     const TaggedSource::Tag& tag, std::uint64_t newTag);

/// What an update logs of a song that is missing.
std::string MissingSongLine(const std::string& song);

/// Why a song is not on the player.
std::string NotCopiedText(const std::string& song, const FileError& error);

}  // namespace repvolta
