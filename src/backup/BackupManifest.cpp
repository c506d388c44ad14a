#include "backup/BackupManifest.h"

#include <array>
#include <charconv>
#include <utility>

namespace repvolta {
namespace {

constexpr std::string_view kFirstLine = "Repvolta backup";
constexpr std::string_view kFormat = "format";

constexpr std::array<std::pair<std::string_view, std::string BackupOrigin::*>, 4> kTexts = {{
    {"program", &BackupOrigin::version},
    {"made", &BackupOrigin::made},
    {"directory", &BackupOrigin::programDirectory},
    {"home", &BackupOrigin::home},
}};

std::string Line(std::string_view key, std::string_view value) {
  if (value.find_first_of("\r\n") != std::string_view::npos) value = {};
  return std::string(key).append("=").append(value).append("\n");
}

/// 0 for anything but a number above 0.
int FormatOf(std::string_view text) {
  int format = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), format);
  const bool isNumber = error == std::errc() && end == text.data() + text.size();
  return isNumber && format > 0 ? format : 0;
}

/// Removes the first line, and its line end, from `text`.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

void TakeValue(BackupOrigin& origin, std::string_view key, std::string_view value) {
  if (key == kFormat) origin.format = FormatOf(value);
  for (const auto& [name, text] : kTexts) {
    if (key == name) origin.*text = value;
  }
}

}  // namespace

std::string ManifestText(const BackupOrigin& origin) {
  std::string text = std::string(kFirstLine) + "\n" + Line(kFormat, std::to_string(origin.format));
  for (const auto& [name, value] : kTexts) text += Line(name, origin.*value);
  return text;
}

BackupOrigin ParseManifest(std::string_view text) {
  BackupOrigin origin;
  origin.format = 0;
  if (TakeLine(text) != kFirstLine) return origin;
  while (!text.empty()) {
    const std::string_view line = TakeLine(text);
    const std::size_t sign = line.find('=');
    if (sign != std::string_view::npos)
      TakeValue(origin, line.substr(0, sign), line.substr(sign + 1));
  }
  return origin;
}

}  // namespace repvolta
