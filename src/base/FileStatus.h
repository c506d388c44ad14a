#pragma once

#include <optional>
#include <string>
#include <sys/stat.h>

namespace repvolta {

enum class Links { kFollowed, kSeen };

/// What the system says of what stands at `path`, of a link itself where links are seen; nothing
/// when nothing stands there. Throws FileError when that cannot be known.
std::optional<struct stat> StatusOf(const std::string& path, Links links);

}  // namespace repvolta
