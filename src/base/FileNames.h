#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace repvolta {

/// The part after the last separator: "Song.mp3" of "/music/Song.mp3".
std::string FileName(std::string_view path);

/// The file name without its last extension: "Song" of "/music/Song.mp3", "" of ".RPV".
std::string BaseName(std::string_view path);

/// Everything up to and including the last separator; "" when there is none.
std::string FolderOf(std::string_view path);

/// The path without separators at its end, except for "/" itself.
std::string WithoutSeparator(std::string_view path);

/// True when `name` can name one entry of a folder: not empty, no "." or "..", no separator or
/// control character, at most 255 bytes.
bool IsFileName(std::string_view name);

/// `name` + `extension` as a file name: separators and control characters become "_", and a name
/// that is too long is cut between characters. `extension` starts with its dot.
std::string AsFileName(std::string_view name, std::string_view extension);

/// The file that `path` names when the case of its last part is ignored: `path` itself if it
/// exists, else the first match in its folder in name order; nothing when there is none.
std::optional<std::string> FindFile(const std::string& path);

/// FindFile(path), or `path` itself if there is no such file.
std::string ExistingName(const std::string& path);

/// The names of the files in `folder` that end in `extension` (".lst"), in name order; matching and
/// order ignore case. Empty when there is no such folder. Throws FileError when it cannot be read.
std::vector<std::string> ListFiles(const std::string& folder, std::string_view extension);

}  // namespace repvolta
