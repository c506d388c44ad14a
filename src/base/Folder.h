#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace repvolta {

/// What an entry of a folder is, without following a link.
enum class EntryType { kFile, kFolder, kLink, kOther };

using TakeEntry = std::function<void(std::string_view name, EntryType type)>;

/// Calls `take` for each entry of the folder but "." and "..", in the order of the file system.
/// Returns 0, or the error number of what kept it from reading on.
int ForEachEntry(const std::string& folder, const TakeEntry& take);

}  // namespace repvolta
