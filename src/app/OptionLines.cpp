#include "app/OptionLines.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "base/Text.h"

namespace repvolta {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t\r\n";
constexpr char kEscape = '%';

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool IsKeyCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
         c == '_' || c == '.';
}

bool IsControl(char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }

bool IsPlainText(std::string_view text) {
  const auto isWrong = [](char c) { return IsControl(c) && c != '\t'; };
  return IsUtf8(text) && std::ranges::none_of(text, isWrong);
}

struct Assignment {
  std::string_view key;
  std::string_view value;
};

/// Nothing for a comment, a blank line and an odd one.
std::optional<Assignment> AssignmentIn(std::string_view line) {
  const std::string_view text = Trim(line);
  const std::size_t sign = text.find('=');
  if (text.starts_with('#') || sign == std::string_view::npos || !IsPlainText(text)) return {};
  const std::string_view key = Trim(text.substr(0, sign));
  if (key.empty() || !std::ranges::all_of(key, IsKeyCharacter)) return {};
  return Assignment{key, Trim(text.substr(sign + 1))};
}

bool HasKey(std::string_view line, std::string_view key) {
  const auto assignment = AssignmentIn(line);
  return assignment && assignment->key == key;
}

std::string_view EndOf(std::string_view line) {
  if (line.ends_with("\r\n")) return "\r\n";
  return line.ends_with('\n') ? "\n" : "";
}

std::optional<bool> FlagOf(std::string_view value) {
  for (const char* yes : {"yes", "true", "on", "1"}) {
    if (FoldCase(value) == FoldCase(yes)) return true;
  }
  for (const char* no : {"no", "false", "off", "0"}) {
    if (FoldCase(value) == FoldCase(no)) return false;
  }
  return std::nullopt;
}

std::optional<std::int64_t> NumberOf(std::string_view value, const NumberOption& option) {
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
  const bool isNumber = error == std::errc() && end == value.data() + value.size();
  if (!isNumber || number < option.least || number > option.most) return std::nullopt;
  return number;
}

/// "%" and two hexadecimal digits for each byte that could not stand in a line as it is.
std::string Escaped(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const bool isUtf8 = IsUtf8(text);
  std::string escaped;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isAtEnd = i == 0 || i + 1 == text.size();
    const auto byte = static_cast<unsigned char>(text[i]);
    if (IsControl(text[i]) || text[i] == kEscape || (byte >= 0x80 && !isUtf8) ||
        (byte == ' ' && isAtEnd)) {
      escaped += {kEscape, kDigits[byte >> 4U], kDigits[byte & 0xFU]};
    } else {
      escaped += text[i];
    }
  }
  return escaped;
}

/// A "%" without two hexadecimal digits, as a person may type it, stands for itself.
std::string Unescaped(std::string_view value) {
  constexpr std::size_t kEscapeSize = 3;
  std::string text;
  for (std::size_t i = 0; i < value.size(); ++i) {
    unsigned byte = 0;
    const std::string_view digits = value.substr(i).substr(0, kEscapeSize);
    const char* end = digits.data() + digits.size();
    if (value[i] == kEscape && digits.size() == kEscapeSize &&
        std::from_chars(digits.data() + 1, end, byte, 16).ptr == end && byte != 0) {
      text += static_cast<char>(byte);
      i += kEscapeSize - 1;
    } else {
      text += value[i];
    }
  }
  return text;
}

}  // namespace

OptionLines::OptionLines(std::string_view file) {
  if (file.starts_with(kByteOrderMark)) {
    mark_ = kByteOrderMark;
    file.remove_prefix(kByteOrderMark.size());
  }
  while (!file.empty()) {
    const std::size_t size = std::min(file.find('\n'), file.size() - 1) + 1;
    lines_.emplace_back(file.substr(0, size));
    file.remove_prefix(size);
  }
}

std::string OptionLines::File() const {
  std::string file = mark_;
  for (const std::string& line : lines_) file += line;
  return file;
}

std::optional<std::string> OptionLines::Value(std::string_view key) const {
  const std::size_t number = LineNumber(key);
  if (number == 0) return std::nullopt;
  return std::string(AssignmentIn(lines_[number - 1])->value);
}

void OptionLines::Set(std::string_view key, std::string_view value) {
  const std::string line = std::string(key).append(" = ").append(value);
  if (const std::size_t number = LineNumber(key); number != 0) {
    std::string& old = lines_[number - 1];
    old = line + std::string(EndOf(old));
    return;
  }
  const std::string end(lines_.empty() || EndOf(lines_.front()) != "\r\n" ? "\n" : "\r\n");
  if (!lines_.empty() && EndOf(lines_.back()).empty()) lines_.back() += end;
  lines_.push_back(line + end);
}

void OptionLines::Remove(std::string_view key) {
  std::erase_if(lines_, [&](const std::string& line) { return HasKey(line, key); });
}

std::vector<std::string> OptionLines::Keys() const {
  std::vector<std::string> keys;
  for (const std::string& line : lines_) {
    const auto assignment = AssignmentIn(line);
    if (assignment && std::ranges::count(keys, assignment->key) == 0) {
      keys.emplace_back(assignment->key);
    }
  }
  return keys;
}

std::vector<OptionLines::OddLine> OptionLines::OddLines() const {
  std::vector<OddLine> odd;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const std::string_view text = Trim(lines_[i]);
    if (text.empty() || text.starts_with('#') || AssignmentIn(text)) continue;
    odd.push_back({i + 1, std::string(text)});
  }
  return odd;
}

std::size_t OptionLines::LineNumber(std::string_view key) const {
  for (std::size_t number = lines_.size(); number > 0; --number) {
    if (HasKey(lines_[number - 1], key)) return number;
  }
  return 0;
}

OptionLines MergeOptions(const OptionLines& base, const OptionLines& ours, OptionLines theirs) {
  for (const std::string& key : ours.Keys()) {
    const auto value = ours.Value(key);
    if (value != base.Value(key) && value != theirs.Value(key)) theirs.Set(key, *value);
  }
  for (const std::string& key : base.Keys()) {
    if (!ours.Value(key)) theirs.Remove(key);
  }
  return theirs;
}

bool Get(const OptionLines& options, const FlagOption& option) {
  return FlagOf(options.Value(option.key).value_or("")).value_or(option.byDefault);
}

std::int64_t Get(const OptionLines& options, const NumberOption& option) {
  return NumberOf(options.Value(option.key).value_or(""), option).value_or(option.byDefault);
}

std::string Get(const OptionLines& options, const TextOption& option) {
  const auto value = options.Value(option.key);
  return value ? Unescaped(*value) : std::string(option.byDefault);
}

void Put(OptionLines& options, const FlagOption& option, bool value) {
  options.Set(option.key, value ? "yes" : "no");
}

void Put(OptionLines& options, const NumberOption& option, std::int64_t value) {
  options.Set(option.key, std::to_string(value));
}

void Put(OptionLines& options, const TextOption& option, std::string_view value) {
  options.Set(option.key, Escaped(value));
}

bool IsUnderstood(const OptionLines& options, const FlagOption& option) {
  const auto value = options.Value(option.key);
  return !value || FlagOf(*value);
}

bool IsUnderstood(const OptionLines& options, const NumberOption& option) {
  const auto value = options.Value(option.key);
  return !value || NumberOf(*value, option);
}

}  // namespace repvolta
