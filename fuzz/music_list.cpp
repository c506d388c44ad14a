#include <algorithm>

#include "app/ProgramState.h"
#include "base/Lines.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "update/RandomMusicList.h"

#include "fakes/FakeServices.h"
#include "support/Cost.h"
#include "support/Fuzz.h"
#include "support/SongBytes.h"

// The input is random numbers and a range, then the music list. It must have the lines of the plain
// rule, and a drawn song must be one of them.

namespace repvolta {
namespace {

constexpr std::size_t kLongRun = 40000;
constexpr std::size_t kMostExpanded = 160000;

/// A byte 1 stands for a long run of the letter x, so that small inputs make lines longer than a
/// block. No line leads out of the folder, so that no other file is opened.
std::string Expanded(std::span<const Byte> bytes) {
  std::string text;
  for (const Byte byte : bytes) {
    if (byte == 1 && text.size() < kMostExpanded) {
      text.append(kLongRun, 'x');
    } else {
      text += byte == '/' ? '_' : static_cast<char>(byte);
    }
  }
  return text;
}

std::vector<std::string> LinesByRule(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    std::string line = text.substr(start, std::min(end - start, kLongestLine));
    if (line.ends_with('\r')) line.pop_back();
    lines.push_back(line);
    start = end + 1;
  }
  return lines;
}

void CompareLines(const std::string& text, const std::vector<std::string>& expected) {
  ProgramState state;
  std::vector<std::string> lines;
  {
    const LinearCost cost(text.size());
    CountRandomMusicFiles(state);
    ForEachLine(kMusicList, [&](std::string_view line) {
      lines.emplace_back(line);
      return true;
    });
  }
  Require(lines == expected, "the lines are the rule's");
  Require(state.RandomMusicFiles == static_cast<std::int32_t>(expected.size()), "the count");
}

void Draw(FuzzInput& input, const std::vector<std::string>& lines) {
  std::vector<double> numbers(4);
  for (double& number : numbers) number = input.TakeNumber() / 65536.0;
  ScriptedNumbers random(numbers);
  const auto minimum = static_cast<std::int16_t>(input.TakeByte());
  const auto maximum = static_cast<std::int16_t>(input.TakeByte());
  const auto count = static_cast<std::int32_t>(lines.size());
  const std::string song = GetRandomMusicFile(count, minimum, maximum, random);
  Require(random.seeded == 1, "random numbers are begun anew");
  const auto isDrawn = [&](const std::string& line) { return TrimBlanks(line) == song; };
  Require(song.empty() || std::ranges::any_of(lines, isDrawn), "a song drawn is in the list");
  const std::string& first = lines[static_cast<std::size_t>(numbers[0] * count)];
  const auto secondsOf = [](std::string_view name) {
    return name == "10.mp3" ? 10 : name == "20.mp3" ? 20 : -1;
  };
  const int seconds = secondsOf(TrimBlanks(first));
  if (seconds >= minimum && seconds <= maximum && seconds >= 0) {
    Require(song == TrimBlanks(first), "the first number whose song fits draws it");
  }
}

}  // namespace
}  // namespace repvolta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace repvolta;
  static const FuzzFolder folder;
  static const bool made = [] {
    PutFile("10.mp3", SongBytes(10));
    PutFile("20.mp3", SongBytes(20));
    return true;
  }();
  static_cast<void>(made);
  FuzzInput input(data, size);
  FuzzInput parameters = input;
  for (int i = 0; i < 10; ++i) input.TakeByte();
  const std::string text = Expanded(input.Rest());
  PutFile(kMusicList, AsBytes(text));
  const std::vector<std::string> lines = LinesByRule(text);
  CompareLines(text, lines);
  if (!lines.empty()) Draw(parameters, lines);
  return 0;
}
