#include "player/PlayerNames.h"

#include <algorithm>
#include <array>
#include <cerrno>

#include "base/Text.h"

namespace repvolta {
namespace {

constexpr std::string_view kForbidden = "<>:\"/\\|?*";
constexpr std::size_t kLongestName = 255;      // bytes on most disks, UTF-16 units on the others
constexpr std::size_t kLongestExtension = 16;  // what follows a dot further in front is none

bool ContinuesCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

/// The UTF-8 character, or the byte that belongs to none, at the start of the text.
std::string_view FirstCharacter(std::string_view text) {
  std::size_t size = 1;
  while (size < text.size() && ContinuesCharacter(text[size])) ++size;
  return IsUtf8(text.substr(0, size)) ? text.substr(0, size) : text.substr(0, 1);
}

std::size_t BytesOf(std::string_view character) { return character.size(); }

/// The size of the character in UTF-16.
std::size_t UnitsOf(std::string_view character) { return character.size() > 3 ? 2 : 1; }

using Measure = std::size_t (*)(std::string_view character);

/// The longest beginning of the text that is no longer than `limit`.
std::string_view CutTo(std::string_view text, std::size_t limit, Measure measure) {
  std::size_t end = 0;
  while (end < text.size()) {
    const std::string_view character = FirstCharacter(text.substr(end));
    if (measure(character) > limit) break;
    limit -= measure(character);
    end += character.size();
  }
  return text.substr(0, end);
}

/// The extension with its dot; "" when there is none.
std::string_view ExtensionOf(std::string_view name) {
  const std::size_t dot = name.rfind('.');
  if (dot == std::string_view::npos || name.size() - dot > kLongestExtension) return "";
  return name.substr(dot);
}

/// The name, cut before its extension when it is longer than 255 by this measure.
std::string Shortened(const std::string& name, Measure measure) {
  if (CutTo(name, kLongestName, measure).size() == name.size()) return name;
  const std::string_view extension = ExtensionOf(name);
  const std::string_view stem = std::string_view(name).substr(0, name.size() - extension.size());
  // By no other measure is the extension longer than in bytes.
  return std::string(CutTo(stem, kLongestName - extension.size(), measure)).append(extension);
}

bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

bool IsRefused(char c) {
  const auto code = static_cast<unsigned char>(c);
  return code < 0x20 || code == 0x7F || kForbidden.find(c) != std::string_view::npos;
}

bool IsReserved(std::string_view stem) {
  static constexpr std::array<std::string_view, 4> kDevices{"CON", "PRN", "AUX", "NUL"};
  std::string upper(stem);
  std::transform(upper.begin(), upper.end(), upper.begin(), [](char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  });
  if (std::find(kDevices.begin(), kDevices.end(), upper) != kDevices.end()) return true;
  return upper.size() == 4 && (upper.starts_with("COM") || upper.starts_with("LPT")) &&
         upper[3] >= '1' && upper[3] <= '9';
}

std::string InAscii(const std::string& name) {
  std::string result;
  for (std::string_view rest = name; !rest.empty();) {
    const std::string_view character = FirstCharacter(rest);
    result += IsAscii(character[0]) ? character[0] : '_';
    rest.remove_prefix(character.size());
  }
  return result;
}

void AddNew(std::string name, std::vector<std::string>& names) {
  if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(std::move(name));
}

}  // namespace

std::string MendedName(std::string_view name) {
  std::string mended;
  for (std::string_view rest = name; !rest.empty();) {
    const std::string_view character = FirstCharacter(rest);
    const bool isHeld = IsUtf8(character) && !IsRefused(character[0]);
    mended += isHeld ? character : "_";
    rest.remove_prefix(character.size());
  }
  while (mended.ends_with(' ') || mended.ends_with('.')) mended.pop_back();
  if (mended.empty()) return "_";
  const std::size_t stem = TrimTrailingBlanks(mended.substr(0, mended.find('.'))).size();
  if (IsReserved(std::string_view(mended).substr(0, stem))) mended.insert(stem, "_");
  return mended;
}

std::vector<std::string> PlayerNames(const std::string& name) {
  std::vector<std::string> names{name};
  for (const Measure measure : {UnitsOf, BytesOf}) AddNew(Shortened(name, measure), names);
  const std::string mended = MendedName(name);
  for (const std::string& whole : {mended, InAscii(mended)}) {
    AddNew(whole, names);
    // A cut may leave a blank at the end.
    for (const Measure measure : {UnitsOf, BytesOf}) {
      AddNew(MendedName(Shortened(whole, measure)), names);
    }
  }
  return names;
}

bool MayRefuseName(int error) {
  // exFAT through FUSE says ENOENT, FAT through FUSE EPERM.
  static constexpr std::array<int, 9> kAnswers{EINVAL, ENOENT, EPERM,   ENAMETOOLONG, EILSEQ,
                                               EACCES, EIO,    ENOTSUP, EPROTO};
  return std::find(kAnswers.begin(), kAnswers.end(), error) != kAnswers.end();
}

}  // namespace repvolta
