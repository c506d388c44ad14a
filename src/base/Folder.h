#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/Descriptor.h"
#include "base/FolderHandle.h"

namespace repvolta {

/// What an entry of a folder is, without following a link.
enum class EntryType { kFile, kFolder, kLink, kOther };

using TakeEntry = std::function<void(std::string_view name, EntryType type)>;

/// True when `path` is a folder or a link to one. Throws FileError when the disk cannot tell.
bool FolderExists(const std::string& path);

/// True when `path` itself is a link, whatever it points to. Throws FileError when the disk cannot
/// tell.
bool IsLink(const std::string& path);

/// True when `path` exists, even as a dangling link. Throws FileError when the disk cannot tell.
bool IsTaken(const std::string& path);

/// Creates the folder unless it exists. Throws FileError.
void MakeFolder(const std::string& path);

/// Like MakeFolder, and creates its parent folders too.
void MakeFolders(const std::string& path);

/// Calls `take` for each entry of the folder except "." and "..", in the file system's order.
/// Returns 0, or the errno value when the folder could not be read to its end.
int ForEachEntry(const std::string& folder, const TakeEntry& take);
int ForEachEntry(Descriptor folder, const TakeEntry& take);

/// The same for the folder `name` in the opened folder `place`, or for that itself: "."; a link is
/// not followed.
int ForEachEntry(const FolderHandle& place, const std::string& name, const TakeEntry& take);

}  // namespace repvolta
