#pragma once

#include <string>
#include <string_view>

#include "base/Bytes.h"

namespace repvolta {

/// The bits of a frame header's fields. The defaults: MPEG-1 Layer III, 128 kbit/s, 44.1 kHz,
/// stereo, no CRC.
struct FrameFields {
  std::uint32_t version = 3;
  std::uint32_t layer = 1;
  std::uint32_t protection = 1;
  std::uint32_t bitRate = 9;
  std::uint32_t sampleRate = 0;
  std::uint32_t padding = 0;
  std::uint32_t isPrivate = 0;
  std::uint32_t channelMode = 0;
  std::uint32_t copyright = 0;
  std::uint32_t original = 0;
  std::uint32_t emphasis = 0;

  /// The four bytes as a little-endian number, as the scan reads them.
  std::uint32_t LittleEndian() const;
};

inline constexpr FrameFields kMpeg1Layer3{};
inline constexpr FrameFields kMpeg2Layer3{.version = 2};

/// The bytes of an ID3v2 tag.
class Id3v2Bytes {
 public:
  explicit Id3v2Bytes(Byte version = 3, Byte flags = 0) : version_(version), flags_(flags) {}

  /// A frame with these data in the layout of the version.
  Id3v2Bytes& Frame(std::string_view identifier, std::string_view data);

  /// A frame with an encoding byte 0 before the text.
  Id3v2Bytes& Text(std::string_view identifier, std::string_view text);

  Id3v2Bytes& Padding(std::size_t count);

  /// Puts `size` into the size field instead of the true size.
  Id3v2Bytes& ClaimSize(std::uint32_t size);

  /// The size field carries seven bits a byte.
  Id3v2Bytes& Syncsafe();

  Bytes Build(std::string_view marker = "ID3") const;

 private:
  Byte version_;
  Byte flags_;
  std::string body_;
  std::uint32_t claimed_ = 0;
  bool claims_ = false;
  bool syncsafe_ = false;
};

/// The bytes of an MP3 file, part by part.
class Mp3Bytes {
 public:
  /// Bytes in which no frame and no tag can start.
  Mp3Bytes& Garbage(std::size_t count);
  Mp3Bytes& Zeros(std::size_t count);
  Mp3Bytes& Raw(std::span<const Byte> bytes);
  Mp3Bytes& Raw(std::string_view text) { return Raw(AsBytes(text)); }
  Mp3Bytes& Id3v2(const Id3v2Bytes& tag) { return Raw(tag.Build()); }

  /// The ten bytes that end an appended tag.
  Mp3Bytes& Footer(const Id3v2Bytes& tag);

  /// A frame of `size` bytes, filled with zeros.
  Mp3Bytes& Frame(const FrameFields& fields = kMpeg1Layer3, std::size_t size = 417);
  Mp3Bytes& Frames(std::size_t count, const FrameFields& fields = kMpeg1Layer3);

  /// Puts a Xing header into the frame that was added last.
  Mp3Bytes& Xing(std::uint32_t flags, std::uint32_t frameCount, std::size_t offsetInFrame = 36);

  /// `track` 0: a tag without a track number.
  Mp3Bytes& Id3v1(std::string_view title, Byte track = 0);

  std::size_t Size() const { return bytes_.size(); }
  operator const Bytes&() const { return bytes_; }
  operator std::span<const Byte>() const { return bytes_; }

 private:
  Bytes bytes_;
  std::size_t lastFrame_ = 0;
};

}  // namespace repvolta
