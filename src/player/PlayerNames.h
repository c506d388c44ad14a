#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace repvolta {

/// The names under which a file or folder called `name` may be kept, the nearest first: `name`
/// itself, then what disks of players take instead of it. Most names have no other.
std::vector<std::string> PlayerNames(const std::string& name);

/// The name with "_" for each character that FAT, exFAT or NTFS cannot hold and behind a name that
/// they reserve ("CON"), without blanks and dots at its end. Never empty.
std::string MendedName(std::string_view name);

/// True when a file system that refuses a name may answer with this errno value.
bool MayRefuseName(int error);

}  // namespace repvolta
