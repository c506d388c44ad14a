#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/Descriptor.h"

namespace repvolta {

/// What an entry of a folder is, without following a link.
enum class EntryType { kFile, kFolder, kLink, kOther };

using TakeEntry = std::function<void(std::string_view name, EntryType type)>;

/// True when `path` is a folder, or a link to one. Throws FileError when that cannot be known.
bool FolderExists(const std::string& path);

/// True when `path` itself is a link, wherever it leads. Throws FileError when that cannot be
/// known.
bool IsLink(const std::string& path);

/// True when anything has the name `path`, be it a link that leads nowhere. Throws FileError when
/// that cannot be known.
bool IsTaken(const std::string& path);

/// Makes the folder unless it is there. Throws FileError.
void MakeFolder(const std::string& path);

/// As MakeFolder, with the folders that it lies in.
void MakeFolders(const std::string& path);

/// True when another file system, or a part of the same one once more, is mounted at the folder
/// `path`. Throws FileError, as DeleteFolder would, when that cannot be known.
bool IsMountPoint(const std::string& path);

/// Deletes the folder with all that is in it, read-only folders too; what does not exist is no
/// error. Links are deleted, never followed, and nothing is changed or deleted where another file
/// system is mounted, be it `path` itself. Throws FileError for the first that could not be
/// deleted, when all else is.
void DeleteFolder(const std::string& path);

/// Calls `take` for each entry of the folder but "." and "..", in the order of the file system.
/// Returns 0, or the error number of what kept it from reading on.
int ForEachEntry(const std::string& folder, const TakeEntry& take);
int ForEachEntry(Descriptor folder, const TakeEntry& take);

}  // namespace repvolta
