#pragma once

#include <filesystem>
#include <system_error>

namespace repvolta {

/// The entries of a folder, opened however often a signal comes in between. Sets `error` like the
/// iterator itself; there are then no entries.
inline std::filesystem::directory_iterator OpenFolder(const std::filesystem::path& folder,
                                                      std::error_code& error) {
  while (true) {
    std::filesystem::directory_iterator entries(folder, error);
    if (error != std::errc::interrupted) return entries;
  }
}

}  // namespace repvolta
