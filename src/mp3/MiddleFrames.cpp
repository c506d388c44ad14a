#include "mp3/MiddleFrames.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <vector>

#include "base/File.h"
#include "mp3/Id3v2Format.h"
#include "mp3/MpegFormat.h"

namespace repvolta {
namespace {

constexpr std::uint64_t kMostBytes = std::uint64_t{2} * 1024 * 1024;

constexpr std::uint32_t kLayer3Bits = 1;
constexpr std::uint32_t kOneChannel = 3;

// What a header has in common with those of the same song: all sync, version and layer bits, the
// sample rate.
constexpr std::uint32_t kSameInASong = 0xFFFE0C00;

/// What may follow by chance: this many frames in a row are no chance.
constexpr std::size_t kFramesInARow = 3;

/// A Layer III frame.
struct Frame {
  std::size_t begin = 0;  // in the window
  std::size_t size = 0;
  std::uint32_t header = 0;
  std::uint32_t rate = 0;
  double seconds = 0;

  std::size_t End() const { return begin + size; }
  bool IsMono() const { return kChannelModeField.Of(header) == kOneChannel; }
  bool IsLike(const Frame& other) const {
    return ((header ^ other.header) & kSameInASong) == 0 && IsMono() == other.IsMono();
  }
};

/// As the standard has it; the play times of the update go by another table.
std::uint32_t RateOf(std::uint32_t header) {
  constexpr std::int32_t kMisprinted = 26000;
  const std::int32_t rate = kSampleRates[kVersionField.Of(header)][kSampleRateField.Of(header)];
  return static_cast<std::uint32_t>(rate == kMisprinted ? 16000 : rate);
}

std::optional<Frame> FrameAt(std::span<const Byte> window, std::size_t begin) {
  if (begin > window.size() || window.size() - begin < kFrameHeaderSize) return std::nullopt;
  const std::uint32_t header = LoadBigEndian32(window.subspan(begin));
  if (header >> 21 != 0x7FF || kLayerField.Of(header) != kLayer3Bits) return std::nullopt;
  const bool isVersion1 = kVersionField.Of(header) == kVersion1Bits;
  const auto& bitRates = isVersion1 ? kBitRatesOfVersion1 : kBitRatesOfVersion2;
  const auto bits = static_cast<std::uint32_t>(bitRates[kLayer3Bits][kBitRateField.Of(header)]);
  const std::uint32_t rate = RateOf(header);
  if (bits == 0 || rate == 0) return std::nullopt;
  const std::uint32_t samples = isVersion1 ? 1152 : 576;
  const std::size_t size = samples * bits * 125 / rate + kPaddingField.Of(header);
  return Frame{begin, size, header, rate, static_cast<double>(samples) / rate};
}

/// The frame at `begin`, if as many follow as the end of the window lets one see.
std::optional<Frame> CertainFrameAt(std::span<const Byte> window, std::size_t begin) {
  const std::optional<Frame> first = FrameAt(window, begin);
  std::optional<Frame> last = first;
  for (std::size_t i = 1; last && i < kFramesInARow && last->End() < window.size(); ++i) {
    last = FrameAt(window, last->End());
    if (!last || !last->IsLike(*first)) return std::nullopt;
  }
  return last && last->End() <= window.size() ? first : std::nullopt;
}

/// The whole frames of the window that are like the first of them.
std::vector<Frame> FramesIn(std::span<const Byte> window) {
  std::vector<Frame> frames;
  for (std::size_t at = 0; at < window.size();) {
    const auto frame = frames.empty() || frames.back().End() != at ? CertainFrameAt(window, at)
                                                                   : FrameAt(window, at);
    const bool isOfSong =
        frame && frame->End() <= window.size() && (frames.empty() || frame->IsLike(frames.front()));
    if (isOfSong) frames.push_back(*frame);
    at = isOfSong ? frame->End() : at + 1;
  }
  return frames;
}

/// As many frames as take `seconds`, from the middle.
std::span<const Frame> Middle(std::span<const Frame> frames, double seconds) {
  if (frames.empty()) return frames;
  const auto wanted = static_cast<std::size_t>(seconds / frames.front().seconds);
  if (wanted >= frames.size()) return frames;
  return frames.subspan((frames.size() - wanted) / 2, wanted);
}

/// The bytes of the tag at the start, which may hold pictures larger than the song; 0 without one.
std::uint64_t SizeOfTag(const File& file) {
  std::array<Byte, kId3v2HeaderSize> header{};
  file.ReadAt(0, header);
  if (AsText(header).substr(0, kId3v2Marker.size()) != kId3v2Marker) return 0;
  std::uint64_t size = 0;
  for (const Byte byte : std::span(header).subspan(kId3v2SizeOffset))
    size = size << 7 | (byte & 0x7FU);
  return kId3v2HeaderSize + size;
}

Bytes MiddleOf(const File& file) {
  const std::uint64_t end = file.Size();
  const std::uint64_t begin = std::min(SizeOfTag(file), end);
  Bytes window(static_cast<std::size_t>(std::min(end - begin, kMostBytes)));
  window.resize(file.ReadAt(begin + (end - begin - window.size()) / 2, window));
  return window;
}

}  // namespace

FramesOfSong MiddleFrames(const std::string& path, double seconds) {
  const Bytes window = MiddleOf(File::Open(path, File::Access::kRead));
  const std::vector<Frame> all = FramesIn(window);
  FramesOfSong song;
  for (const Frame& frame : Middle(all, seconds)) {
    const auto bytes = std::span(window).subspan(frame.begin, frame.size);
    song.bytes.insert(song.bytes.end(), bytes.begin(), bytes.end());
    song.rate = frame.rate;
    song.channels = frame.IsMono() ? 1 : 2;
  }
  return song;
}

}  // namespace repvolta
