#pragma once

#include <string>

#include "base/File.h"

namespace repvolta {

/// The fixed name, beside `path`, under which its new version is written.
std::string WorkingName(const std::string& path);

/// A new, empty and private file at WorkingName(path), locked while it is open. A leftover of a
/// dead process is removed, never opened for writing; a process that is writing the same file gets
/// up to a second to finish. Throws FileError that names `path`, and the owner of a leftover that
/// cannot be removed.
File CreateWorkingFile(const std::string& path);

}  // namespace repvolta
