#include "base/Lines.h"

#include <algorithm>

#include "base/File.h"

namespace repvolta {
namespace {

constexpr std::size_t kBlock = std::size_t{128} * 1024;

using TakeLine = std::function<bool(std::string_view)>;

/// Splits the blocks of a file into lines.
class LineSplitter {
 public:
  explicit LineSplitter(const TakeLine& take) : take_(take) {}

  /// False when no more lines are wanted.
  bool Feed(std::string_view block) {
    for (std::size_t end; (end = block.find('\n')) != std::string_view::npos;) {
      if (!End(block.substr(0, end))) return false;
      block.remove_prefix(end + 1);
    }
    Begin(block);
    return true;
  }

  /// Skips a block without a wanted line.
  void Skip(std::string_view block) {
    beginning_.clear();
    begun_ = !block.ends_with('\n');
  }

  /// Passes on the last line when the file does not end with a line end.
  void Finish() {
    if (begun_) End({});
  }

 private:
  void Begin(std::string_view part) {
    begun_ = begun_ || !part.empty();
    beginning_.append(part.substr(0, kLongestLine - beginning_.size()));
  }

  /// Passes on the line that ends with `part`; its beginning may come from earlier blocks.
  bool End(std::string_view part) {
    if (!begun_) return Give(part);
    Begin(part);
    const bool goesOn = Give(beginning_);
    beginning_.clear();
    begun_ = false;
    return goesOn;
  }

  bool Give(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    return take_(line.substr(0, kLongestLine));
  }

  const TakeLine& take_;
  std::string beginning_;
  bool begun_ = false;
};

/// Calls `take` for each block of the file until it returns false.
template <class Take>
void ForEachBlock(const std::string& path, Take take) {
  const File file = File::Open(path, File::Access::kRead);
  Bytes block(kBlock);
  std::uint64_t offset = 0;
  while (const std::size_t count = file.ReadAt(offset, block)) {
    offset += count;
    if (!take(std::string_view(reinterpret_cast<const char*>(block.data()), count))) return;
  }
}

std::string LastLine(const std::string& path) {
  std::string last;
  ForEachLine(path, [&](std::string_view line) {
    last = line;
    return true;
  });
  return last;
}

/// Counts piece by piece into a single byte, which lets the compiler vectorise the loop.
std::int64_t LineEnds(std::string_view block) {
  constexpr std::size_t kPiece = 255;
  std::int64_t ends = 0;
  while (!block.empty()) {
    Byte endsInPiece = 0;
    for (const char character : block.substr(0, kPiece)) {
      endsInPiece = static_cast<Byte>(endsInPiece + (character == '\n' ? 1 : 0));
    }
    ends += endsInPiece;
    block.remove_prefix(std::min(kPiece, block.size()));
  }
  return ends;
}

}  // namespace

void ForEachLine(const std::string& path, const TakeLine& take) {
  LineSplitter splitter(take);
  bool goesOn = true;
  ForEachBlock(path, [&](std::string_view block) { return goesOn = splitter.Feed(block); });
  if (goesOn) splitter.Finish();
}

std::int64_t CountLines(const std::string& path) {
  std::int64_t count = 0;
  bool endsInLine = false;
  ForEachBlock(path, [&](std::string_view block) {
    count += LineEnds(block);
    endsInLine = !block.ends_with('\n');
    return true;
  });
  return count + (endsInLine ? 1 : 0);
}

std::vector<std::string> LinesAt(const std::string& path,
                                 const std::vector<std::int64_t>& numbers) {
  std::vector<std::string> lines;
  std::int64_t number = 0;
  const TakeLine take = [&](std::string_view line) {
    while (lines.size() < numbers.size() && numbers[lines.size()] == number) {
      lines.emplace_back(line);
    }
    ++number;
    return lines.size() < numbers.size();
  };
  LineSplitter splitter(take);
  ForEachBlock(path, [&](std::string_view block) {
    if (lines.size() == numbers.size()) return false;
    // In a block without a wanted line, only the line ends are counted.
    const std::int64_t ends = LineEnds(block);
    if (number + ends >= numbers[lines.size()]) return splitter.Feed(block);
    number += ends;
    splitter.Skip(block);
    return true;
  });
  if (lines.size() == numbers.size()) return lines;
  splitter.Finish();
  if (lines.size() < numbers.size()) lines.resize(numbers.size(), LastLine(path));
  return lines;
}

}  // namespace repvolta
