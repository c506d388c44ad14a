#pragma once

#include <string>

namespace repvolta {

inline constexpr const char* kPlayListExtension = ".M3U";  // quirk 51

/// Appends a path, as its own bytes, and a CR LF to the play list, which is made when it does not
/// exist. Throws FileError; std::invalid_argument for a path with a line break in it, which would
/// be two lines.
void AddToPlaylistFile(const std::string& line, const std::string& playList);

}  // namespace repvolta
