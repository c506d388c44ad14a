#pragma once

#include <string>

#include "base/FolderHandle.h"

namespace repvolta {

/// True when something is mounted at the folder `path`, even another part of the same file system.
/// Throws FileError, as DeleteFolder would, when the system cannot tell.
bool IsMountPoint(const std::string& path);

/// The same for the folder `name` in an opened one.
bool IsMountPoint(const FolderHandle& place, const std::string& name);

/// The same for `folder`, which was opened in `place`.
bool IsMountPoint(const FolderHandle& place, const FolderHandle& folder);

/// Deletes the folder and everything in it, even read-only folders; it need not exist. Links are
/// deleted, never followed, and mounted file systems are left alone, even if `path` itself is one.
/// Deletes all it can, then throws FileError for the first entry that it could not.
void DeleteFolder(const std::string& path);

/// The same for `folder`, which was opened in `place` under its name: no other folder is deleted,
/// even if one has taken the name meanwhile.
void DeleteFolder(const FolderHandle& place, const FolderHandle& folder);

}  // namespace repvolta
