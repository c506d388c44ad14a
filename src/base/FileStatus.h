#pragma once

#include <optional>
#include <string>
#include <sys/stat.h>

namespace repvolta {

enum class Links { kFollowed, kSeen };

/// The status of the file or folder `path`, with kSeen that of a link itself; nothing when `path`
/// does not exist. Throws FileError when the disk cannot tell.
std::optional<struct stat> StatusOf(const std::string& path, Links links);

/// 0 when this process may write to the file or folder `path`, else the errno value.
int ErrorOfWritingTo(const std::string& path);

}  // namespace repvolta
