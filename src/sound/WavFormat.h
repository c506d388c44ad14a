#pragma once

#include <cstddef>
#include <cstdint>

#include "base/Bytes.h"

namespace repvolta {

// The header of every WAV file that the program writes or joins: one format chunk with an (empty)
// extension, then the samples. All numbers are little-endian.
inline constexpr std::size_t kWavHeaderSize = 46;
inline constexpr std::size_t kRiffSizeOffset = 4;  // 4 bytes: file length - 8
inline constexpr std::size_t kWaveOffset = 8;      // "WAVE", "fmt "
inline constexpr std::size_t kFormatSizeOffset = 16;
inline constexpr std::size_t kFormatTagOffset = 20;
inline constexpr std::size_t kChannelsOffset = 22;
inline constexpr std::size_t kSampleRateOffset = 24;
inline constexpr std::size_t kByteRateOffset = 28;
inline constexpr std::size_t kBlockAlignOffset = 32;
inline constexpr std::size_t kSampleBitsOffset = 34;
inline constexpr std::size_t kExtensionSizeOffset = 36;
inline constexpr std::size_t kDataOffset = 38;  // "data"
inline constexpr std::size_t kDataSizeOffset = 42;

inline constexpr std::uint32_t kFormatChunkSize = 18;
inline constexpr std::uint16_t kPcmTag = 1;
inline constexpr std::uint16_t kFloatTag = 3;
inline constexpr std::uint16_t kExtensibleTag = 0xFFFE;

/// The format of the samples. 8-bit samples are unsigned, wider ones signed.
struct WavFormat {
  std::uint32_t rate = 0;  // samples a second and channel
  std::uint16_t bits = 0;
  std::uint16_t channels = 0;

  bool operator==(const WavFormat&) const = default;
};

/// The 46 bytes in front of `dataSize` bytes of PCM samples.
Bytes WavHeader(const WavFormat& format, std::uint32_t dataSize);

}  // namespace repvolta
