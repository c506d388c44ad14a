#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "base/Bytes.h"

namespace repvolta {

// The header of an MPEG audio frame, and the Xing header in the first one. Bytes and bits are
// explained in docs/formats/mpeg-header.md.

inline constexpr std::size_t kFrameHeaderSize = 4;

/// A frame can start where all these bits are set in the four bytes, read as a little-endian
/// number.
inline constexpr std::uint32_t kFrameSync = 0xE0FF;
inline constexpr Byte kFirstSyncByte = 0xFF;

/// The search for a frame stops this many bytes before the end of the file (quirk 87).
inline constexpr std::int32_t kScanTail = 5;

// Fields of the header as a big-endian number: how far to shift right, and what to keep.
struct HeaderField {
  int shift;
  std::uint32_t mask;

  constexpr std::uint32_t Of(std::uint32_t header) const { return header >> shift & mask; }
};
inline constexpr HeaderField kVersionField{19, 3};
inline constexpr HeaderField kLayerField{17, 3};
inline constexpr HeaderField kProtectionField{16, 1};
inline constexpr HeaderField kBitRateField{12, 15};
inline constexpr HeaderField kSampleRateField{10, 3};
inline constexpr HeaderField kPaddingField{9, 1};
inline constexpr HeaderField kPrivateField{8, 1};
inline constexpr HeaderField kChannelModeField{6, 3};
inline constexpr HeaderField kCopyrightField{3, 1};
inline constexpr HeaderField kOriginalField{2, 1};
inline constexpr HeaderField kEmphasisField{0, 3};

inline constexpr std::uint32_t kVersion1Bits = 3;
inline constexpr std::uint32_t kLayer1Bits = 3;

/// Indexed by the version bits; 0 is reserved.
inline constexpr std::array<float, 4> kMpegVersions{2.5F, 0, 2, 1};

/// Indexed by the layer bits; 0 is reserved.
inline constexpr std::array<std::int32_t, 4> kLayers{0, 3, 2, 1};

/// Hz, by the version bits and the sample rate index; 0 is reserved. MPEG-2 has 26000 where the
/// standard has 16000 (quirk 77).
inline constexpr std::array<std::array<std::int32_t, 4>, 4> kSampleRates{{
    {11025, 12000, 8000, 0},
    {0, 0, 0, 0},
    {22050, 24000, 26000, 0},
    {44100, 48000, 32000, 0},
}};

using BitRates = std::array<std::int32_t, 16>;

/// kbit/s of MPEG-1, by the layer bits and the bit rate index. Layer II ends in 284 where the
/// standard has 384 (quirk 78).
inline constexpr std::array<BitRates, 4> kBitRatesOfVersion1{{
    {},
    {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 0},
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 284, 0},
    {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448, 0},
}};

/// kbit/s of MPEG-2 and 2.5, indexed by the layer bits and the bit rate index.
inline constexpr std::array<BitRates, 4> kBitRatesOfVersion2{{
    {},
    {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160, 0},
    {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160, 0},
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256, 0},
}};

inline constexpr std::array<std::string_view, 4> kChannelModes{"Stereo", "Joint stereo",
                                                               "Dual channel", "Single channel"};
/// By the emphasis bits (quirk 89).
inline constexpr std::array<std::string_view, 4> kEmphases{"None", "50/15 ms", "Reserved",
                                                           "CCIT j.17"};

/// From the start of the first frame to the Xing header, in bytes. This is its place in MPEG-1
/// stereo, and the only one where it is looked for (quirk 83).
inline constexpr std::int32_t kXingOffset = 36;
inline constexpr std::size_t kXingSize = 12;  // what is read of it

/// A Xing header is read only if the first frame's header starts more than this many bytes before
/// the end of the file.
inline constexpr std::int32_t kXingTail = 48;
inline constexpr std::string_view kXingMarker = "Xing";
inline constexpr std::size_t kXingFlagsByte = 7;  // the lowest of the four flag bytes
inline constexpr Byte kXingHasFrameCount = 1;
inline constexpr std::size_t kXingFrameCountOffset = 8;

}  // namespace repvolta
