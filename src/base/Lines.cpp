#include "base/Lines.h"

#include "base/File.h"

namespace repvolta {
namespace {

constexpr std::size_t kBlock = std::size_t{128} * 1024;

using TakeLine = std::function<bool(std::string_view)>;

/// Takes lines out of the blocks of a file.
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

  /// Gives the last line, when nothing ended it.
  void Finish() {
    if (begun_) End({});
  }

 private:
  void Begin(std::string_view part) {
    begun_ = begun_ || !part.empty();
    beginning_.append(part.substr(0, kLongestLine - beginning_.size()));
  }

  /// Gives the line that ends with `part`; its beginning may have stood in earlier blocks.
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

}  // namespace

void ForEachLine(const std::string& path, const TakeLine& take) {
  const File file = File::Open(path, File::Access::kRead);
  Bytes block(kBlock);
  LineSplitter splitter(take);
  std::uint64_t offset = 0;
  while (const std::size_t count = file.ReadAt(offset, block)) {
    offset += count;
    const auto* text = reinterpret_cast<const char*>(block.data());
    if (!splitter.Feed({text, count})) return;
  }
  splitter.Finish();
}

}  // namespace repvolta
