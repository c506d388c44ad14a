#pragma once

#include <string>

namespace repvolta {

inline constexpr const char* kPlayListExtension = ".M3U";  // quirk 51

/// Appends a path, byte for byte, and CR LF to the play list, which is created if it does not
/// exist. Throws FileError; std::invalid_argument for a path with a line break, which would become
/// two lines.
void AddToPlaylistFile(const std::string& line, const std::string& playList);

}  // namespace repvolta
