#pragma once

#include <string>

#include "base/File.h"

namespace repvolta {

/// The name under which a new version of `path` is written beside it, always the same.
std::string WorkingName(const std::string& path);

/// A new, empty and private file at WorkingName(path), locked while it is open. What a process that
/// is no more has left there is removed, never opened for writing; a process that is just writing
/// the same file is waited for, a second at most. Throws FileError that names `path`, and the user
/// of a leftover that cannot be removed.
File CreateWorkingFile(const std::string& path);

}  // namespace repvolta
