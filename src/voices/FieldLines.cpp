#include "voices/FieldLines.h"

#include <array>
#include <charconv>
#include <cmath>

namespace repvolta {
namespace {

constexpr double kFarthest = 1000;  // from 0, of any level; so that a text has room for it

}  // namespace

std::vector<std::string_view> Fields(std::string_view line, std::size_t count) {
  std::vector<std::string_view> fields;
  fields.reserve(count);
  while (fields.size() + 1 < count) {
    const std::size_t end = line.find('\t');
    if (end == std::string_view::npos) break;
    fields.push_back(line.substr(0, end));
    line.remove_prefix(end + 1);
  }
  fields.push_back(line);
  return fields;
}

std::string TwoPlaces(double level) {
  std::array<char, 32> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), level, std::chars_format::fixed, 2).ptr;
  return {text.data(), end};
}

std::optional<double> NumberIn(std::string_view text) {
  double level = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), level);
  const bool isNumber = error == std::errc() && end == text.data() + text.size();
  const bool isLevel = isNumber && std::abs(level) <= kFarthest;
  return isLevel ? std::optional(level) : std::nullopt;
}

}  // namespace repvolta
