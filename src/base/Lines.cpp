#include "base/Lines.h"

#include "base/File.h"

namespace repvolta {
namespace {

constexpr std::size_t kBlock = 128 * 1024;

std::string_view WithoutCarriageReturn(std::string_view line) {
  return line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
}

void AppendLimited(std::string& line, std::string_view part) {
  line.append(part.substr(0, kLongestLine - line.size()));
}

}  // namespace

void ForEachLine(const std::string& path, const std::function<bool(std::string_view)>& take) {
  const File file = File::Open(path, File::Access::kRead);
  std::string block(kBlock, '\0');
  std::string begun;  // a line that began in an earlier block
  bool inLine = false;
  std::uint64_t offset = 0;
  const std::span<Byte> buffer(reinterpret_cast<Byte*>(block.data()), block.size());
  while (const std::size_t count = file.ReadAt(offset, buffer)) {
    offset += count;
    std::string_view rest = std::string_view(block).substr(0, count);
    for (std::size_t end; (end = rest.find('\n')) != std::string_view::npos;) {
      std::string_view line = rest.substr(0, end);
      if (inLine) {
        AppendLimited(begun, line);
        line = begun;
      }
      if (!take(WithoutCarriageReturn(line.substr(0, kLongestLine)))) return;
      rest.remove_prefix(end + 1);
      begun.clear();
      inLine = false;
    }
    AppendLimited(begun, rest);
    inLine = inLine || !rest.empty();
  }
  if (inLine) take(WithoutCarriageReturn(begun));
}

}  // namespace repvolta
