#pragma once

#include <initializer_list>
#include <string_view>

#include "base/Bytes.h"

namespace repvolta {

/// Builds the bytes of a WAV file chunk by chunk: WavBytes().Format(1, 16000, 16).Samples16({0,
/// 1}).
class WavBytes {
 public:
  WavBytes() { Text("RIFF").U32(0xFFFFFFFF).Text("WAVE"); }

  WavBytes& Text(std::string_view text) {
    for (const char c : text) bytes_.push_back(static_cast<Byte>(c));
    return *this;
  }
  WavBytes& U16(std::uint16_t value) { return Number(value); }
  WavBytes& U32(std::uint32_t value) { return Number(value); }

  /// A format chunk of 16 bytes.
  WavBytes& Format(std::uint16_t channels, std::uint32_t rate, std::uint16_t bits,
                   std::uint16_t tag = 1) {
    return Text("fmt ").U32(16).FormatFields(channels, rate, bits, tag);
  }
  /// A format chunk of 40 bytes with its tag in the extension.
  WavBytes& ExtensibleFormat(std::uint16_t channels, std::uint32_t rate, std::uint16_t bits,
                             std::uint16_t tag = 1) {
    Text("fmt ").U32(40).FormatFields(channels, rate, bits, 0xFFFE);
    return U16(22).U16(bits).U32(0).U16(tag).Text(
        std::string_view("\0\0\0\0\x10\0\x80\0\0\xAA\0\x38\x9B\x71", 14));
  }
  WavBytes& Chunk(std::string_view name, std::string_view content) {
    return Text(name).U32(static_cast<std::uint32_t>(content.size())).Text(content);
  }
  WavBytes& Samples16(std::initializer_list<int> samples) {
    Text("data").U32(static_cast<std::uint32_t>(samples.size() * 2));
    for (const int sample : samples) U16(static_cast<std::uint16_t>(sample));
    return *this;
  }

  const Bytes& Get() const { return bytes_; }
  operator std::span<const Byte>() const { return bytes_; }

 private:
  template <std::unsigned_integral T>
  WavBytes& Number(T value) {
    for (std::size_t i = 0; i < sizeof(T); ++i) bytes_.push_back(static_cast<Byte>(value >> 8 * i));
    return *this;
  }
  WavBytes& FormatFields(std::uint16_t channels, std::uint32_t rate, std::uint16_t bits,
                         std::uint16_t tag) {
    const auto frame = static_cast<std::uint16_t>(channels * bits / 8);
    return U16(tag).U16(channels).U32(rate).U32(rate * frame).U16(frame).U16(bits);
  }

  Bytes bytes_;
};

}  // namespace repvolta
