#include "mp3/Id3v2Frames.h"

#include <algorithm>
#include <array>

#include "base/SingleByteText.h"
#include "mp3/Id3v2Format.h"

namespace repvolta {
namespace {

void AppendFrame(Bytes& tag, std::string_view identifier, std::string_view text) {
  constexpr FrameLayout kLayout = kFrameLayoutOfVersion3;
  const std::string data = ToWindows1252(text);
  std::array<Byte, kLayout.headerSize + 1> start{};
  // A three-character identifier, left from version 2.2, is padded with a zero byte (quirk 64).
  const auto named = AsBytes(identifier.substr(0, kLayout.identifierSize));
  std::copy(named.begin(), named.end(), start.begin());
  StoreBigEndian32(std::span(start).subspan(kLayout.identifierSize),
                   static_cast<std::uint32_t>(data.size() + 1));
  start.back() = kLatin1Encoding;
  tag.insert(tag.end(), start.begin(), start.end());
  tag.insert(tag.end(), data.begin(), data.end());
}

}  // namespace

std::size_t Id3v2Frames::IndexOf(std::string_view identifier) const {
  const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
    return entry.identifier == identifier;
  });
  return static_cast<std::size_t>(found - entries_.begin());
}

void Id3v2Frames::Add(std::string_view identifier, std::string text) {
  const std::size_t index = IndexOf(identifier);
  if (index == entries_.size()) entries_.push_back({std::string(identifier), {}});
  entries_[index].texts.push_back(std::move(text));
}

void Id3v2Frames::RemoveAll(std::string_view identifier) {
  const std::size_t index = IndexOf(identifier);
  if (index < entries_.size()) entries_[index].texts.clear();
}

std::size_t Id3v2Frames::Count(std::string_view identifier) const {
  const std::size_t index = IndexOf(identifier);
  return index == entries_.size() ? 0 : entries_[index].texts.size();
}

std::string Id3v2Frames::Text(std::string_view identifier, std::size_t ordinal) const {
  if (ordinal < 1 || ordinal > Count(identifier)) return "";
  return entries_[IndexOf(identifier)].texts[ordinal - 1];
}

std::string Id3v2Frames::LastText(std::string_view identifier) const {
  return Text(identifier, Count(identifier));
}

std::vector<std::string> Id3v2Frames::Identifiers() const {
  std::vector<std::string> identifiers;
  for (const Entry& entry : entries_) identifiers.push_back(entry.identifier);
  return identifiers;
}

Bytes Id3v2Frames::Build() const {
  Bytes frames;
  for (const Entry& entry : entries_) {
    // A reader would take such a frame for the start of a tag (quirk 65).
    if (entry.identifier.find(kId3v2Marker) != std::string::npos) continue;
    for (const std::string& text : entry.texts) AppendFrame(frames, entry.identifier, text);
  }
  return frames;
}

}  // namespace repvolta
