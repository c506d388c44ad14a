#include "update/RandomMusicList.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>
#include <vector>

#include "base/File.h"
#include "base/Lines.h"
#include "base/Numbers.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "mp3/GetPlayTime.h"

namespace repvolta {
namespace {

constexpr int kAttempts = 101;  // quirk 40

bool IsInRange(const std::string& path, std::int16_t minimum, std::int16_t maximum) {
  std::int16_t seconds = 0;
  try {
    seconds = GetPlayTime(path);
  } catch (const std::overflow_error&) {
    return false;  // Too long for any range.
  } catch (const std::exception&) {
    seconds = 0;  // quirk 38
  }
  return minimum <= seconds && seconds <= maximum;
}

}  // namespace

void CountRandomMusicFiles(ProgramState& state) {
  state.RandomMusicFiles = 0;
  if (!FileExists(kMusicList)) return;
  const std::int64_t count = CountLines(kMusicList);
  if (!std::in_range<std::int32_t>(count)) {
    throw std::overflow_error(std::string(kMusicList) + " has too many lines");
  }
  state.RandomMusicFiles = static_cast<std::int32_t>(count);
}

std::string GetRandomMusicFile(std::int32_t count, std::int16_t minimum, std::int16_t maximum,
                               RandomNumbers& random) {
  if (!FileExists(kMusicList)) return "";
  random.Seed();  // quirk 43
  std::vector<std::int64_t> numbers(kAttempts);
  for (std::int64_t& number : numbers) {
    number = static_cast<std::int64_t>(std::floor(random.Next() * count));
  }
  std::vector<std::int64_t> sorted = numbers;
  std::sort(sorted.begin(), sorted.end());
  const std::vector<std::string> lines = LinesAt(kMusicList, sorted);
  for (const std::int64_t number : numbers) {
    const auto place = std::lower_bound(sorted.begin(), sorted.end(), number) - sorted.begin();
    std::string path(TrimBlanks(lines[static_cast<std::size_t>(place)]));
    if (IsInRange(path, minimum, maximum)) return path;
  }
  return "";
}

}  // namespace repvolta
