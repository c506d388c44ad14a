#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace repvolta {

/// What is kept of a longer line: no path is as long.
inline constexpr std::size_t kLongestLine = std::size_t{64} * 1024;

/// Calls `take` for each line of a text file, without its line end (LF or CR LF); a last line needs
/// none. Stops when `take` returns false. Memory use does not depend on the size of the file.
/// Throws FileError.
void ForEachLine(const std::string& path, const std::function<bool(std::string_view)>& take);

}  // namespace repvolta
