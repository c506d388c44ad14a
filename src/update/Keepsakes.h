#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace repvolta {

/// What the deletion of a folder must not take along.
struct Keepsakes {
  std::vector<std::string> folders = {};  // with all that is in them; "" is none
  std::vector<std::string> songs = {};    // but those with a name that an update gives
  std::string songList = {};              // a file that names more of them, one a line; "": none
};

/// True for a name as an update gives it to its files: "RV", three digits or more, "-".
bool IsNumberedName(std::string_view name);

/// The first of them that is the folder, or lies in it, under whatever name: a folder is known by
/// its device and its number there, and what is mounted in it is not looked into. Nothing when
/// there is none. Throws FileError when that cannot be known.
std::optional<std::string> FindKeepsake(const std::string& folder, const Keepsakes& keep);

}  // namespace repvolta
