#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace repvolta {

/// The part behind the last separator: "Song.mp3" of "/music/Song.mp3".
std::string FileName(std::string_view path);

/// The file name without its last extension: "Song" of "/music/Song.mp3", "" of ".RPV".
std::string BaseName(std::string_view path);

/// All up to the last separator, which is kept; "" when there is none.
std::string FolderOf(std::string_view path);

/// The path without the separators at its end; "/" stays.
std::string WithoutSeparator(std::string_view path);

/// True when `name` can name one entry of a folder: not empty, no "." or "..", no separator or
/// control character, at most 255 bytes.
bool IsFileName(std::string_view name);

/// `name` + `extension` as a file name: separators and control characters become "_", a name that
/// is too long is cut between characters. `extension` has its point.
std::string AsFileName(std::string_view name, std::string_view extension);

/// The path of the file that `path` names without regard to case in its last part: itself when it
/// exists, else the first match in its folder in name order; nothing when there is none.
std::optional<std::string> FindFile(const std::string& path);

/// FindFile(path), or `path` where there is no such file.
std::string ExistingName(const std::string& path);

/// The names of the files in `folder` that end in `extension` (".lst"), both without regard to
/// case, in name order without regard to case; none where there is no such folder. Throws FileError
/// when it cannot be read.
std::vector<std::string> ListFiles(const std::string& folder, std::string_view extension);

}  // namespace repvolta
