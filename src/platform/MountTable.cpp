#include "platform/MountTable.h"

#include <charconv>
#include <fstream>
#include <iterator>

namespace repvolta {
namespace {

constexpr std::size_t kEscapeLength = 4;  // of a blank, which is written as \040

/// Cuts off and returns what stands before the next `end`.
std::string_view Cut(std::string_view& text, char end) {
  const std::size_t length = text.find(end);
  const std::string_view part = text.substr(0, length);
  text.remove_prefix(length == std::string_view::npos ? text.size() : length + 1);
  return part;
}

/// The number is untouched when the text is none.
void ReadNumber(std::string_view text, unsigned& number, int base = 10) {
  std::from_chars(text.data(), text.data() + text.size(), number, base);
}

/// A field with its escaped blanks, tabs, line ends and backslashes.
std::string Unescaped(std::string_view field) {
  std::string text;
  while (!field.empty()) {
    std::size_t length = 1;
    char character = field.front();
    if (character == '\\' && field.size() >= kEscapeLength) {
      unsigned code = 0;
      ReadNumber(field.substr(1, kEscapeLength - 1), code, 8);
      character = static_cast<char>(code);
      length = kEscapeLength;
    }
    text += character;
    field.remove_prefix(length);
  }
  return text;
}

/// The fields are: two numbers, device, folder of the device, mount point, options, any number of
/// further fields, "-", type, source, options.
std::optional<Mount> MountIn(std::string_view line) {
  Mount mount;
  Cut(line, ' ');
  Cut(line, ' ');
  std::string_view device = Cut(line, ' ');
  ReadNumber(Cut(device, ':'), mount.major);
  ReadNumber(device, mount.minor);
  Cut(line, ' ');
  mount.point = Unescaped(Cut(line, ' '));
  const std::size_t separator = line.find(" - ");
  if (separator == std::string_view::npos || !mount.point.starts_with('/')) return std::nullopt;
  line.remove_prefix(separator + 3);
  mount.type = Unescaped(Cut(line, ' '));
  mount.source = Unescaped(Cut(line, ' '));
  return mount;
}

}  // namespace

std::vector<Mount> MountsIn(std::string_view table) {
  std::vector<Mount> mounts;
  while (!table.empty()) {
    if (auto mount = MountIn(Cut(table, '\n'))) mounts.push_back(std::move(*mount));
  }
  return mounts;
}

std::vector<Mount> ReadMounts(const SystemFiles& files) {
  std::ifstream table(files.mounts, std::ios::binary);
  return MountsIn(std::string(std::istreambuf_iterator<char>(table), {}));
}

std::optional<Mount> MountOf(const std::vector<Mount>& mounts, std::string_view path) {
  const Mount* best = nullptr;
  for (const Mount& mount : mounts) {
    if (!LiesIn(path, mount.point)) continue;
    if (!best || mount.point.size() >= best->point.size()) best = &mount;
  }
  return best ? std::optional(*best) : std::nullopt;
}

bool LiesIn(std::string_view path, std::string_view folder) {
  if (!path.starts_with(folder)) return false;
  return folder.ends_with('/') || path.size() == folder.size() || path[folder.size()] == '/';
}

}  // namespace repvolta
