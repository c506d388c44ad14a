#include "app/ClipOrigins.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <exception>
#include <optional>
#include <utility>

#include "base/File.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/Lines.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "base/WholeFile.h"

namespace repvolta {
namespace {

constexpr std::string_view kFirstLine =
    "# Whose the clips are; Repvolta writes it: clip, checksum, owner, day, rate, voice, text\n";
constexpr char kBetween = '\t';
constexpr std::size_t kFields = 7;
constexpr std::size_t kDigits = 64;                         // of a checksum
constexpr std::size_t kLargestFile = std::size_t{4} << 20;  // bytes that are read
constexpr std::size_t kLongestClip = 32U << 20;
constexpr std::string_view kDayPattern = "0000-00-00";
constexpr int kSlowest = -10;
constexpr int kFastest = 10;

constexpr std::array<std::pair<ClipOwner, std::string_view>, 4> kOwners = {
    {{ClipOwner::kProgram, "program"},
     {ClipOwner::kComputer, "computer"},
     {ClipOwner::kOwn, "own"},
     {ClipOwner::kUnknown, "unknown"}}};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool IsChecksum(std::string_view text) {
  return text.size() == kDigits &&
         std::ranges::all_of(text, [](char c) { return IsDigit(c) || (c >= 'a' && c <= 'f'); });
}

bool IsDay(std::string_view text) {
  return text.empty() || std::ranges::equal(text, kDayPattern, [](char c, char pattern) {
           return pattern == '0' ? IsDigit(c) : c == pattern;
         });
}

bool IsName(std::string_view file) {
  const std::string folder = FolderOf(file);
  return IsUtf8(file) && (folder.empty() || folder == kNameClipSubfolder) &&
         IsFileName(FileName(file));
}

std::optional<ClipOwner> OwnerOf(std::string_view word) {
  const auto* found =
      std::ranges::find(kOwners, word, &std::pair<ClipOwner, std::string_view>::second);
  if (found == kOwners.end()) return std::nullopt;
  return found->first;
}

std::string_view WordOf(ClipOwner owner) {
  return std::ranges::find(kOwners, owner, &std::pair<ClipOwner, std::string_view>::first)->second;
}

std::optional<std::int16_t> RateOf(std::string_view text) {
  int rate = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), rate);
  const bool isNumber = error == std::errc() && end == text.data() + text.size();
  if (!isNumber || rate < kSlowest || rate > kFastest) return std::nullopt;
  return static_cast<std::int16_t>(rate);
}

/// Nothing when the line has fewer fields; what is behind the last one belongs to a later format.
std::optional<std::array<std::string_view, kFields>> FieldsOf(std::string_view line) {
  std::array<std::string_view, kFields> fields;
  for (std::size_t i = 0; i < kFields; ++i) {
    const std::size_t end = line.find(kBetween);
    fields.at(i) = line.substr(0, end);
    if (end == std::string_view::npos)
      return i + 1 == kFields ? std::optional(fields) : std::nullopt;
    line.remove_prefix(end + 1);
  }
  return fields;
}

/// Between the fields and lines of the file it must not be taken for their ends.
std::string AsField(std::string text) {
  std::ranges::replace_if(
      text, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }, ' ');
  return text;
}

}  // namespace

ClipOrigins::ClipOrigins(const std::string& programDirectory, UnreadNotes unread)
    : directory_(programDirectory), brought_(programDirectory) {
  try {
    const std::string path = programDirectory + kClipOrigins;
    if (IsTaken(path)) ReadFile(path);
  } catch (const FileError& error) {
    if (unread == UnreadNotes::kThrow) throw;
    notes_.clear();
    fault_ = error;
  }
}

void ClipOrigins::ReadFile(const std::string& path) {
  std::size_t size = 0;
  ForEachLine(path, [&](std::string_view line) {
    size += line.size() + 1;
    if (size > kLargestFile) return false;
    Read(line);
    return true;
  });
}

void ClipOrigins::Read(std::string_view line) {
  while (line.ends_with('\r')) line.remove_suffix(1);
  const auto fields = FieldsOf(line);
  if (fields) {
    const auto& [file, checksum, word, day, speed, voice, text] = *fields;
    const auto owner = OwnerOf(word);
    const auto rate = RateOf(speed);
    if (IsName(file) && IsChecksum(checksum) && owner && IsDay(day) && rate && IsUtf8(voice) &&
        IsUtf8(text)) {
      ClipOrigin origin{*owner, std::string(day), std::string(text), std::string(voice), *rate};
      notes_[{FoldCase(file), std::string(checksum)}] = {std::string(file), std::move(origin)};
      return;
    }
  }
  if (!line.empty() && std::string(line) + "\n" != kFirstLine) others_.emplace(line);
}

ClipOrigin ClipOrigins::Of(const std::string& file, std::span<const Byte> content) const {
  const auto found = notes_.find({FoldCase(file), ChecksumOf(content)});
  if (found != notes_.end()) return found->second.origin;
  if (brought_.Has(kClipFolder + file, content)) return {.owner = ClipOwner::kProgram};
  const bool isOwn = FolderOf(file).empty() && !fault_;
  return {.owner = isOwn ? ClipOwner::kOwn : ClipOwner::kUnknown};
}

std::optional<ClipOrigin> ClipOrigins::LastSpoken(const std::string& file) const {
  const std::u32string folded = FoldCase(file);
  const auto found = std::ranges::find_if(notes_, [&](const auto& note) {
    return note.first.first == folded && note.second.origin.owner == ClipOwner::kComputer;
  });
  if (found == notes_.end()) return std::nullopt;
  return found->second.origin;
}

void ClipOrigins::Set(const std::string& file, std::span<const Byte> content,
                      const ClipOrigin& origin) {
  const std::u32string folded = FoldCase(file);
  std::erase_if(notes_, [&](const auto& note) {
    return note.first.first == folded && !IsAnotherClip(note.second.file, file);
  });
  notes_[{folded, ChecksumOf(content)}] = {file, origin};
}

/// Two clips may differ in case only.
bool ClipOrigins::IsAnotherClip(const std::string& noted, const std::string& file) const {
  return noted != file && FileIsReachable(directory_ + kClipFolder + noted);
}

void ClipOrigins::AddNotesOf(std::string_view encoded) {
  encoded = encoded.substr(0, kLargestFile);
  while (!encoded.empty()) {
    const std::size_t end = encoded.find('\n');
    Read(encoded.substr(0, end));
    encoded.remove_prefix(end == std::string_view::npos ? encoded.size() : end + 1);
  }
}

std::string ClipOrigins::Encode() const {
  if (fault_) throw FileError(*fault_);
  std::string lines(kFirstLine);
  for (const auto& [key, note] : notes_) {
    const ClipOrigin& origin = note.origin;
    lines += AsField(note.file) + kBetween + key.second + kBetween;
    lines += WordOf(origin.owner);
    lines += kBetween + AsField(origin.day) + kBetween + std::to_string(origin.rate) + kBetween +
             AsField(origin.voice) + kBetween + AsField(origin.text) + "\n";
  }
  for (const std::string& line : others_) lines += line + "\n";
  return lines;
}

void NoteClipOrigin(const std::string& file, const ClipOrigin& origin) noexcept {
  try {
    ClipOrigins origins("");
    origins.Set(file, ReadWholeFile(kClipFolder + file, kLongestClip), origin);
    MakeFolder(WithoutSeparator(kVoicesFolder));
    WriteWholeFile(kClipOrigins, AsBytes(origins.Encode()));
  } catch (const std::exception&) {
    // An unknown origin takes nothing away from the clip.
  }
}

}  // namespace repvolta
