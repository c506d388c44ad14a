#include <algorithm>
#include <filesystem>
#include <set>

#include "app/ProgramState.h"
#include "base/Lines.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "update/MusicListing.h"
#include "update/RandomMusicList.h"

#include "support/Cost.h"
#include "support/Fuzz.h"

// The input is the names of files and folders in a music folder. The compiled list must have each
// music file once, and nothing else.

namespace repvolta {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostNames = 32;
constexpr std::size_t kLongestName = 255;

bool IsMusic(const std::string& name) {
  if (name.size() < 4) return false;
  std::string end = name.substr(name.size() - 4);
  for (char& c : end) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return end == ".mp3";
}

/// Takes a name off the start of the input. No name leads out of its folder.
std::string TakeName(std::span<const Byte>& names) {
  const auto end = std::ranges::find(names, Byte{0});
  std::string name(names.begin(), end);
  names = end == names.end() ? std::span<const Byte>() : std::span(end + 1, names.end());
  std::ranges::replace(name, '/', '_');
  return name;
}

bool CanBeMade(const std::string& name, const fs::path& path) {
  if (name.empty() || name == "." || name == ".." || name.size() > kLongestName) return false;
  return !fs::exists(path) && path.native().size() <= 2000;
}

/// Creates a file for each name, or, if the name begins with "=", a folder, which receives the
/// later names. Returns the paths that the list must have.
std::multiset<std::string> MakeMusic(std::span<const Byte> names, fs::path folder) {
  std::multiset<std::string> music;
  bool lineBreakAbove = false;
  std::size_t count = 0;
  while (!names.empty() && count++ < kMostNames) {
    const std::string name = TakeName(names);
    const fs::path path = folder / name;
    if (!CanBeMade(name, path)) continue;
    const bool breaks = lineBreakAbove || name.find_first_of("\r\n") != std::string::npos;
    if (name.starts_with('=')) {
      fs::create_directory(path);
      folder = path;
      lineBreakAbove = breaks;
    } else {
      PutFile(path, AsBytes("x"));
      if (IsMusic(name) && !breaks) music.insert(path);
    }
  }
  return music;
}

}  // namespace
}  // namespace repvolta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace repvolta;
  static const FuzzFolder folder;
  folder.Empty();
  const std::string musicFolder = folder.Path() + "music";
  fs::create_directory(musicFolder);
  const auto expected = MakeMusic({data, size}, musicFolder);
  {
    const LinearCost cost(size);
    CompileMusicList(musicFolder, nullptr);
  }
  std::multiset<std::string> listed;
  ForEachLine(kMusicList, [&](std::string_view line) {
    listed.emplace(line);
    return true;
  });
  Require(listed == expected, "the list has each music file once, and nothing else");
  ProgramState state;
  CountRandomMusicFiles(state);
  Require(state.RandomMusicFiles == static_cast<std::int32_t>(expected.size()), "the count");
  Require(folder.CountEntries() == 2, "nothing stays behind");
  return 0;
}
