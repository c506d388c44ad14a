#include "update/RandomMusicList.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <system_error>
#include <vector>

#include "base/File.h"
#include "base/Folder.h"
#include "base/Lines.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "base/WholeFile.h"
#include "mp3/GetPlayTime.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

constexpr int kAttempts = 101;
constexpr std::size_t kExtensionSize = 4;  // ".mp3"

bool IsMusicName(const std::string& path) {
  return path.size() >= kExtensionSize &&
         FoldCase(std::string_view(path).substr(path.size() - kExtensionSize)) == U".mp3";
}

bool IsListed(const fs::directory_entry& entry) {
  std::error_code error;
  const std::string& path = entry.path().native();
  return IsMusicName(path) && path.find_first_of("\r\n") == std::string::npos &&
         entry.is_regular_file(error);
}

/// Adds the music files of a folder to the list, and its folders to those still to be listed. What
/// cannot be read is left out.
void ListFolder(const fs::path& folder, WholeFileWriter& list, std::vector<fs::path>& folders) {
  std::error_code error;
  for (fs::directory_iterator entry = OpenFolder(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code unknown;
    if (entry->is_directory(unknown)) {
      if (!entry->is_symlink(unknown)) folders.push_back(entry->path());
    } else if (IsListed(*entry)) {
      list.Append(entry->path().native() + "\n");
    }
  }
}

/// The last line read when the lines 0 to `number` are read, by `number`.
std::map<std::int64_t, std::string> ReadLines(const std::vector<std::int64_t>& sortedNumbers) {
  std::map<std::int64_t, std::string> lines;
  std::string last;
  std::int64_t number = 0;
  auto wanted = sortedNumbers.begin();
  ForEachLine(kMusicList, [&](std::string_view line) {
    last = line;
    for (; wanted != sortedNumbers.end() && *wanted == number; ++wanted) lines[number] = last;
    ++number;
    return wanted != sortedNumbers.end();
  });
  for (; wanted != sortedNumbers.end(); ++wanted) lines[*wanted] = last;
  return lines;
}

bool IsInRange(const std::string& path, std::int16_t minimum, std::int16_t maximum) {
  std::int16_t seconds = 0;
  try {
    seconds = GetPlayTime(path);
  } catch (const std::overflow_error&) {
    return false;  // Too long for any range.
  } catch (const std::exception&) {
    seconds = 0;
  }
  return minimum <= seconds && seconds <= maximum;
}

}  // namespace

void CompileMusicList(const std::string& musicPath, const std::function<void()>& whileListing) {
  WholeFileWriter list(kMusicList);
  std::vector<fs::path> folders;
  std::error_code error;
  if (!musicPath.empty()) folders.push_back(fs::absolute(musicPath, error));
  while (!folders.empty()) {
    const fs::path folder = std::move(folders.back());
    folders.pop_back();
    ListFolder(folder, list, folders);
    if (whileListing) whileListing();
  }
  list.Commit();
}

void CountRandomMusicFiles(ProgramState& state) {
  state.RandomMusicFiles = 0;
  if (!FileExists(kMusicList)) return;
  ForEachLine(kMusicList, [&](std::string_view) {
    ++state.RandomMusicFiles;
    return true;
  });
}

std::string GetRandomMusicFile(std::int32_t count, std::int16_t minimum, std::int16_t maximum,
                               RandomNumbers& random) {
  if (!FileExists(kMusicList)) return "";
  random.Seed();
  std::vector<std::int64_t> numbers(kAttempts);
  for (std::int64_t& number : numbers) {
    number = static_cast<std::int64_t>(std::floor(random.Next() * count));
  }
  std::vector<std::int64_t> sorted = numbers;
  std::sort(sorted.begin(), sorted.end());
  std::map<std::int64_t, std::string> lines = ReadLines(sorted);
  for (const std::int64_t number : numbers) {
    std::string path(TrimBlanks(lines[number]));
    if (IsInRange(path, minimum, maximum)) return path;
  }
  return "";
}

}  // namespace repvolta
