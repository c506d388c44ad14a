#pragma once

#include <string>

namespace repvolta {

/// Renames the file or folder `from` to `to` in the same folder or on the same disk. Throws
/// FileError, and renames nothing, when `to` exists already, even as a dangling link.
void RenameToNew(const std::string& from, const std::string& to);

}  // namespace repvolta
