#include "mp3/Id3v2Reader.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <stdexcept>

#include "base/SingleByteText.h"
#include "mp3/FileWindow.h"
#include "mp3/FirstMatch.h"
#include "mp3/Id3v2Format.h"

namespace repvolta {
namespace {

constexpr std::array<Byte, 2> kAudioStart{0xFF, 0xFB};

constexpr int kMostFrames = 4096;
constexpr std::size_t kMostBytesHeld = std::size_t{4} * 1024 * 1024;

std::int32_t PositionPast(std::uint64_t offset, const std::string& path) {
  const std::uint64_t position = offset + kId3v2Marker.size() + 1;
  if (position > std::numeric_limits<std::int32_t>::max()) {
    throw std::overflow_error(path + " could not be read: Its tag stands too far from the start");
  }
  return static_cast<std::int32_t>(position);
}

/// 1 when the bytes begin a tag's marker or the audio.
constexpr Byte EndsSearch(Byte first, Byte second, Byte third) {
  const unsigned isMarker = AsBit(first == 'I') & AsBit(second == 'D') & AsBit(third == '3');
  const unsigned isAudio = AsBit(first == kAudioStart[0]) & AsBit(second == kAudioStart[1]);
  return static_cast<Byte>(isMarker | isAudio);
}

/// FirstMatch for the end of the search.
REPVOLTA_WIDE_REGISTERS std::size_t FirstEnd(std::span<const Byte> bytes, std::size_t count) {
  return FirstMatch(bytes, count, EndsSearch);
}

/// The offset of the first marker at or after `start`, if no audio comes before it.
std::optional<std::uint64_t> FindMarker(const File& file, std::uint64_t start) {
  FileWindow window(file);
  for (std::uint64_t offset = start;;) {
    const auto bytes = window.From(offset, kId3v2Marker.size());
    if (bytes.size() < kId3v2Marker.size()) return std::nullopt;
    const std::size_t count = bytes.size() - kId3v2Marker.size() + 1;
    const std::size_t found = FirstEnd(bytes, count);
    offset += found;
    if (found == count) continue;
    if (bytes[found] == kAudioStart[0]) return std::nullopt;
    return offset;
  }
}

struct FrameHeader {
  std::string identifier;
  std::uint32_t size;
};

std::uint32_t BigEndian(std::span<const Byte> bytes) {
  std::uint32_t value = 0;
  for (const Byte byte : bytes) value = value << 8 | byte;
  return value;
}

std::string InVersion3(std::string identifier) {
  for (const auto& [old, current] : kIdentifiersOfVersion2) {
    if (identifier == old) return std::string(current);
  }
  return identifier;
}

/// The area of the frames, according to the tag: from the end of its header to the tag's end, which
/// may lie past the end of the file.
struct FrameArea {
  std::uint64_t start;
  std::uint64_t end;
};

FrameArea AreaOf(const Id3v2Place& place) {
  const std::uint64_t start = place.Offset() + kId3v2HeaderSize;
  return {start, start + static_cast<std::uint64_t>(std::max(place.size, 0))};
}

/// The header of the frame at the start of the area; nothing after the last frame.
std::optional<FrameHeader> NextFrame(const File& file, const FrameArea& area,
                                     const FrameLayout& layout) {
  if (area.start >= area.end || area.end - area.start < layout.headerSize) return std::nullopt;
  std::array<Byte, kFrameLayoutOfVersion3.headerSize> bytes{};
  const auto header = std::span(bytes).first(layout.headerSize);
  if (file.ReadAt(area.start, header) < header.size()) return std::nullopt;
  const auto identifier = header.first(layout.identifierSize);
  const std::uint32_t size = BigEndian(header.subspan(layout.identifierSize, layout.sizeSize));
  const bool fits = size <= area.end - area.start - layout.headerSize;
  const bool isPadding = std::ranges::all_of(identifier, [](Byte byte) { return byte == 0; });
  if (isPadding || !fits) return std::nullopt;
  return FrameHeader{AsText(identifier), size};
}

/// The data without zero bytes, which drops the encoding byte and the terminators (quirk 63).
std::string ReadFrameText(const File& file, std::uint64_t offset, std::uint32_t size) {
  std::string data(size, '\0');
  data.resize(file.ReadAt(offset, {reinterpret_cast<Byte*>(data.data()), data.size()}));
  std::erase(data, '\0');
  return FromWindows1252(data);
}

}  // namespace

std::uint64_t Id3v2Place::Offset() const {
  return static_cast<std::uint64_t>(position) - 1 - kId3v2Marker.size();
}

Id3v2Place LocateId3v2(const File& file, std::uint64_t start) {
  Id3v2Place place;
  const auto marker = FindMarker(file, start);
  if (!marker) return place;
  place.position = PositionPast(*marker, file.Path());
  std::array<Byte, kId3v2HeaderSize> header{};
  if (file.ReadAt(place.Offset(), header) <= kId3v2VersionOffset) return place;
  place.version = header[kId3v2VersionOffset];
  if (place.version >= kOldestVersionRead && place.version <= kNewestVersionRead) {
    place.size =
        static_cast<std::int32_t>(LoadBigEndian32(std::span(header).subspan(kId3v2SizeOffset)));
  }
  return place;
}

bool HasId3v2Behind(const File& file, std::uint64_t offset) {
  return FindMarker(file, offset).has_value();
}

Id3v2Frames ReadId3v2Frames(const File& file, const Id3v2Place& place) {
  Id3v2Frames frames;
  if (place.position == 0 || place.size <= 0) return frames;
  const FrameLayout& layout = place.version == 2 ? kFrameLayoutOfVersion2 : kFrameLayoutOfVersion3;
  FrameArea area = AreaOf(place);
  const std::uint64_t fileEnd = file.Size();
  std::size_t held = 0;
  for (int count = 0; count < kMostFrames; ++count) {
    const auto header = NextFrame(file, area, layout);
    if (!header) break;
    const std::uint64_t data = area.start + layout.headerSize;
    const auto size =
        static_cast<std::uint32_t>(std::min<std::uint64_t>(header->size, fileEnd - data));
    if (size <= kMostBytesHeld - held) {
      held += size;
      const bool isVersion2 = place.version == 2;
      frames.Add(isVersion2 ? InVersion3(header->identifier) : header->identifier,
                 ReadFrameText(file, data, size));
    }
    area.start = data + header->size;
  }
  return frames;
}

}  // namespace repvolta
