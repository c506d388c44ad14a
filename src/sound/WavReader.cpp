#include "sound/WavReader.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <optional>

namespace repvolta {
namespace {

constexpr std::size_t kRiffHeaderSize = 12;
constexpr std::size_t kChunkHeaderSize = 8;
constexpr std::size_t kShortestFormatChunk = 16;
constexpr std::size_t kSubFormatOffset = 24;  // in the format chunk, when the tag is extensible
constexpr std::uint32_t kSlowestRate = 1000;
constexpr std::uint32_t kFastestRate = 384000;
constexpr std::uint16_t kMostChannels = 8;

struct Layout {
  std::uint16_t tag;
  WavFormat format;
};

struct Data {
  Layout layout;
  std::span<const Byte> bytes;
};

bool IsUnderstood(const Layout& layout) {
  const auto& [tag, format] = layout;
  if (format.rate < kSlowestRate || format.rate > kFastestRate) return false;
  if (format.channels == 0 || format.channels > kMostChannels) return false;
  if (tag == kFloatTag) return format.bits == 32 || format.bits == 64;
  return tag == kPcmTag && format.bits % 8 == 0 && format.bits >= 8 && format.bits <= 32;
}

Layout ReadLayout(std::span<const Byte> chunk) {
  // Offsets count from the start of the file; the chunk's data starts at the format tag.
  const auto at = [chunk](std::size_t offset) { return chunk.subspan(offset - kFormatTagOffset); };
  if (chunk.size() < kShortestFormatChunk) throw WavError("Its format is not described");
  Layout layout{LoadLittleEndian<std::uint16_t>(at(kFormatTagOffset)),
                {.rate = LoadLittleEndian<std::uint32_t>(at(kSampleRateOffset)),
                 .bits = LoadLittleEndian<std::uint16_t>(at(kSampleBitsOffset)),
                 .channels = LoadLittleEndian<std::uint16_t>(at(kChannelsOffset))}};
  if (layout.tag == kExtensibleTag && chunk.size() >= kSubFormatOffset + 2) {
    layout.tag = LoadLittleEndian<std::uint16_t>(chunk.subspan(kSubFormatOffset));
  }
  if (!IsUnderstood(layout)) throw WavError("Its samples are of a kind that is not understood");
  return layout;
}

float FiniteSample(double value) {
  return std::isnan(value) ? 0.0F : static_cast<float>(std::clamp(value, -1.0, 1.0));
}

float ReadSample(std::span<const Byte> bytes, std::uint16_t tag) {
  if (tag == kFloatTag && bytes.size() == sizeof(double)) {
    return FiniteSample(std::bit_cast<double>(LoadLittleEndian<std::uint64_t>(bytes)));
  }
  if (tag == kFloatTag) {
    return FiniteSample(std::bit_cast<float>(LoadLittleEndian<std::uint32_t>(bytes)));
  }
  if (bytes.size() == 1) return (static_cast<float>(bytes[0]) - 128.0F) / 128.0F;
  // The sample's bytes become the high bytes of a 32-bit number.
  std::uint32_t value = 0;
  for (const Byte byte : bytes) value = value >> 8 | std::uint32_t{byte} << 24;
  return static_cast<float>(static_cast<std::int32_t>(value)) / 2147483648.0F;
}

Data FindData(std::span<const Byte> file) {
  if (file.size() < kRiffHeaderSize || AsText(file.first(4)) != "RIFF" ||
      AsText(file.subspan(kWaveOffset, 4)) != "WAVE") {
    throw WavError("It is no WAV file");
  }
  std::optional<Layout> layout;
  std::span<const Byte> rest = file.subspan(kRiffHeaderSize);
  while (rest.size() >= kChunkHeaderSize) {
    const std::string name = AsText(rest.first(4));
    const std::size_t size = LoadLittleEndian<std::uint32_t>(rest.subspan(4));
    rest = rest.subspan(kChunkHeaderSize);
    const std::span<const Byte> chunk = rest.first(std::min(size, rest.size()));
    if (name == "fmt ") layout = ReadLayout(chunk);
    if (name == "data" && layout) return {*layout, chunk};
    rest = rest.subspan(std::min(chunk.size() + size % 2, rest.size()));
  }
  throw WavError("It holds no sound");
}

}  // namespace

WavSource::WavSource(std::span<const Byte> file) {
  const Data found = FindData(file);
  tag_ = found.layout.tag;
  format_ = found.layout.format;
  data_ = found.bytes;
}

void WavSource::Read(std::size_t first, std::span<float> samples) const {
  std::span<const Byte> rest = data_.subspan(first * FrameSize());
  for (float& sample : samples) {
    sample = Mixed(rest.first(FrameSize()));
    rest = rest.subspan(FrameSize());
  }
}

float WavSource::Mixed(std::span<const Byte> frame) const {
  float sum = 0;
  for (; !frame.empty(); frame = frame.subspan(SampleSize())) {
    sum += ReadSample(frame.first(SampleSize()), tag_);
  }
  return sum / static_cast<float>(format_.channels);
}

Sound ReadWav(std::span<const Byte> file) {
  const WavSource source(file);
  Sound sound{source.Rate(), std::vector<float>(source.Size())};
  source.Read(0, sound.samples);
  return sound;
}

}  // namespace repvolta
