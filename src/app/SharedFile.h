#pragma once

#include <functional>
#include <optional>

#include "base/Bytes.h"
#include "base/File.h"

namespace repvolta {

/// A file of the program directory that another program may change at any time, and what is known
/// of it here.
struct SharedFile {
  const char* name;
  bool isUnread;  // it could not be read at the start, so it must be kept

  /// The stamp of the content that was last loaded or saved here; none: there was no file.
  std::function<std::optional<FileStamp>()> knownStamp;

  /// Merges the changes of others into the content in memory.
  std::function<void()> takeOver;
  std::function<Bytes()> content;

  /// The content in memory is in place, as the file with this stamp.
  std::function<void(const FileStamp&)> remember;
};

/// The stamp of the file if its content was neither loaded nor saved here.
std::optional<FileStamp> StampOfOthers(const char* name, const std::optional<FileStamp>& known);

/// Takes over what others have changed and replaces the file, all or nothing; again when another
/// program changes it meanwhile. Throws FileError.
void SaveShared(const SharedFile& file);

}  // namespace repvolta
