#pragma once

#include <string>

namespace repvolta {

/// True when something is mounted at the folder `path`, even another part of the same file system.
/// Throws FileError, as DeleteFolder would, when the system cannot tell.
bool IsMountPoint(const std::string& path);

/// Deletes the folder and everything in it, even read-only folders; it need not exist. Links are
/// deleted, never followed, and mounted file systems are left alone, even if `path` itself is one.
/// Deletes all it can, then throws FileError for the first entry that it could not.
void DeleteFolder(const std::string& path);

}  // namespace repvolta
