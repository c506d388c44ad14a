#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace repvolta {

/// Longer lines are cut to this many bytes; no path is as long.
inline constexpr std::size_t kLongestLine = std::size_t{64} * 1024;

/// Calls `take` for each line of a text file, without its line end (LF or CR LF). The last line
/// needs no line end. Stops when `take` returns false. Memory use does not depend on the size of
/// the file. Throws FileError.
void ForEachLine(const std::string& path, const std::function<bool(std::string_view)>& take);

/// The number of lines that ForEachLine would pass on. Throws FileError.
std::int64_t CountLines(const std::string& path);

/// The lines with these numbers, which count from 0 and must ascend. A number past the end gives
/// the last line, and "" when the file has no lines. Throws FileError.
std::vector<std::string> LinesAt(const std::string& path, const std::vector<std::int64_t>& numbers);

}  // namespace repvolta
