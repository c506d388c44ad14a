#include "support/Mp3Rule.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "mp3/Id3v1Format.h"
#include "mp3/Id3v2Format.h"
#include "mp3/MpegFormat.h"

namespace repvolta {
namespace {

bool Fits(std::int64_t value) {
  return value >= std::numeric_limits<std::int32_t>::min() &&
         value <= std::numeric_limits<std::int32_t>::max();
}

bool HasAt(std::span<const Byte> file, std::int64_t offset, std::string_view text) {
  const auto size = static_cast<std::int64_t>(file.size());
  if (offset < 0 || offset + static_cast<std::int64_t>(text.size()) > size) return false;
  return AsText(file.subspan(static_cast<std::size_t>(offset), text.size())) == text;
}

Byte At(std::span<const Byte> file, std::int64_t offset) {
  return offset < static_cast<std::int64_t>(file.size()) ? file[static_cast<std::size_t>(offset)]
                                                         : Byte{0};
}

std::uint32_t BigEndianAt(std::span<const Byte> file, std::int64_t offset, int bytes = 4) {
  std::uint32_t value = 0;
  for (int i = 0; i < bytes; ++i) value = value << 8 | At(file, offset + i);
  return value;
}

std::int64_t SevenBitsAByte(std::span<const Byte> file, std::int64_t offset) {
  std::int64_t value = 0;
  for (int i = 0; i < 4; ++i) value = value << 7 | (At(file, offset + i) & 0x7F);
  return value;
}

std::int64_t WholeTagSize(std::span<const Byte> file, std::int64_t offset) {
  const bool hasFooter = (At(file, offset + 5) & kId3v2HasFooter) != 0;
  return SevenBitsAByte(file, offset + 6) + (hasFooter ? 20 : 10);
}

bool CouldBeTag(std::span<const Byte> file, std::int64_t offset) {
  if (!HasAt(file, offset, kId3v2Marker)) return false;
  const bool versionIsSmall = At(file, offset + 4) == 0 && At(file, offset + 3) < 255;
  return versionIsSmall && (BigEndianAt(file, offset + 6) & kNotSyncsafe) == 0;
}

/// The examination of one file.
class Examination {
 public:
  Examination(std::span<const Byte> file, TagsInside inside)
      : file_(file), size_(static_cast<std::int64_t>(file.size())), inside_(inside) {}

  Mp3ByRule Do() {
    FindTags();
    if (!FindFrame()) return {};
    if (!Fits(mp3_.audioBytes * 8)) {
      mp3_.result = RuleResult::kOverflows;
      return mp3_;
    }
    mp3_.result = RuleResult::kFrame;
    mp3_.valid = true;
    mp3_.playTime = mp3_.audioBytes * 8 / 1000 / mp3_.bitRate;
    if (mp3_.headerOffset + 1 < size_ - kXingTail) ReadXing();
    return mp3_;
  }

 private:
  void FindTags() {
    mp3_.hasID3v1 = size_ > std::int64_t{kId3v1Size} &&
                    HasAt(file_, size_ - std::int64_t{kId3v1Size}, kId3v1Marker);
    const std::int64_t end = size_ - (mp3_.hasID3v1 ? std::int64_t{kId3v1Size} : 0);
    if (HasAt(file_, 0, kId3v2Marker)) {
      mp3_.hasID3v2 = true;
      start_ = WholeTagSize(file_, 0);
    } else if (end > 10) {
      mp3_.hasID3v2 = HasAt(file_, end - 10, kId3v2FooterMarker);
    }
  }

  bool FindFrame() {
    std::int64_t offset = start_;
    while (offset < size_ - kScanTail - 1) {
      if (IsFrame(offset)) return true;
      if (inside_ == TagsInside::kSearched && !mp3_.hasID3v2 && CouldBeTag(file_, offset)) {
        mp3_.hasID3v2 = true;
        offset += WholeTagSize(file_, offset);
      } else {
        ++offset;
      }
    }
    return false;
  }

  bool IsFrame(std::int64_t offset) {
    const std::uint32_t header = BigEndianAt(file_, offset);
    if (header >> 21 != 0x7FF) return false;
    const std::uint32_t version = header >> 19 & 3;
    version_ = version;
    mp3_.sampleRate = kSampleRates[version][header >> 10 & 3];
    const auto& rates = version == 3 ? kBitRatesOfVersion1 : kBitRatesOfVersion2;
    mp3_.bitRate = rates[header >> 17 & 3][header >> 12 & 15];
    if (mp3_.sampleRate == 0 || mp3_.bitRate == 0) return false;
    mp3_.headerOffset = offset;
    mp3_.audioBytes = size_ - (offset + 1) - (mp3_.hasID3v1 ? 128 : 0);
    mp3_.frameCount = mp3_.audioBytes / (144000 * mp3_.bitRate / mp3_.sampleRate);
    return true;
  }

  void ReadXing() {
    const std::int64_t offset = mp3_.headerOffset + kXingOffset;
    mp3_.vbr = HasAt(file_, offset, kXingMarker);
    if (!mp3_.vbr) return;
    mp3_.valid = (At(file_, offset + 7) & 1) != 0;
    if (mp3_.valid) TakeFrameCount(static_cast<std::int32_t>(BigEndianAt(file_, offset + 8)));
  }

  void TakeFrameCount(std::int32_t count) {
    mp3_.frameCount = count;
    if (count == 0) {
      mp3_.result = RuleResult::kDividesByZero;
      return;
    }
    const int k = version_ == 3 ? 12 : 144;
    const double rate =
        static_cast<double>(size_) / count * static_cast<double>(mp3_.sampleRate) / (k * 1000);
    if (!Fits(std::llrint(rate))) {
      mp3_.result = RuleResult::kOverflows;
      return;
    }
    mp3_.bitRate = std::llrint(rate) / 12;
    if (mp3_.bitRate == 0) {
      mp3_.result = RuleResult::kDividesByZero;
    } else {
      mp3_.playTime = mp3_.audioBytes * 8 / 1000 / mp3_.bitRate;
    }
  }

  std::span<const Byte> file_;
  std::int64_t size_;
  TagsInside inside_;
  std::int64_t start_ = 0;
  std::uint32_t version_ = 0;
  Mp3ByRule mp3_;
};

/// The largest number of frames of a tag that are read.
constexpr std::size_t kMostFrames = 4096;

/// The offset of the marker if it comes before any FF FB, else the size of the file.
std::size_t MarkerOffset(std::span<const Byte> file) {
  for (std::size_t offset = 0; offset < file.size(); ++offset) {
    if (HasAt(file, static_cast<std::int64_t>(offset), kId3v2Marker)) return offset;
    if (HasAt(file, static_cast<std::int64_t>(offset), "\xFF\xFB")) break;
  }
  return file.size();
}

std::string CurrentIdentifier(const std::string& identifier, Byte version) {
  for (const auto& [old, current] : kIdentifiersOfVersion2) {
    if (version == 2 && identifier == old) return std::string(current);
  }
  return identifier;
}

}  // namespace

Mp3ByRule ExamineByRule(std::span<const Byte> file, TagsInside inside) {
  return Examination(file, inside).Do();
}

TagByRule ReadTagByRule(std::span<const Byte> file) {
  TagByRule tag;
  tag.offset = MarkerOffset(file);
  tag.present = tag.offset < file.size();
  if (!tag.present) return tag;
  const auto start = static_cast<std::int64_t>(tag.offset);
  const Byte version = At(file, start + 3);
  if (version < 2 || version > 4) return tag;
  tag.size = static_cast<std::int32_t>(BigEndianAt(file, start + 6));
  const int width = version == 2 ? 3 : 4;  // of the identifier, and of the size
  const int header = version == 2 ? 6 : 10;
  const std::int64_t end = start + 10 + std::max(tag.size, 0);
  const auto fileEnd = static_cast<std::int64_t>(file.size());
  const auto part = [&](std::int64_t from, std::int64_t count) {
    const std::int64_t there = std::min(count, fileEnd - from);
    return AsText(file.subspan(static_cast<std::size_t>(from), static_cast<std::size_t>(there)));
  };
  std::int64_t offset = start + 10;
  while (tag.frames.size() < kMostFrames && std::min(end, fileEnd) - offset >= header) {
    const std::int64_t size = BigEndianAt(file, offset + width, width);
    const bool isPadding = BigEndianAt(file, offset, width) == 0;
    if (isPadding || offset + header + size > end) break;
    FrameByRule frame{CurrentIdentifier(part(offset, width), version), part(offset + header, size)};
    std::erase(frame.bytes, '\0');
    tag.frames.push_back(std::move(frame));
    offset += header + size;
  }
  return tag;
}

}  // namespace repvolta
