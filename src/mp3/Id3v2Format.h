#pragma once

#include <array>
#include <string_view>
#include <utility>

#include "base/Bytes.h"

namespace repvolta {

// The tag at the start of a file; explained in docs/formats/id3v2.md.

inline constexpr std::string_view kId3v2Marker = "ID3";
inline constexpr std::string_view kId3v2FooterMarker = "3DI";

// Header and footer: marker 3, major version 1, revision 1, flags 1, size 4.
inline constexpr std::size_t kId3v2HeaderSize = 10;
inline constexpr std::size_t kId3v2VersionOffset = 3;
inline constexpr std::size_t kId3v2FlagsOffset = 5;
inline constexpr std::size_t kId3v2SizeOffset = 6;

inline constexpr Byte kId3v2HasFooter = 0x10;

/// These bits are clear in a size field whose bytes carry seven bits each.
inline constexpr std::uint32_t kNotSyncsafe = 0x80808080;

inline constexpr Byte kOldestVersionRead = 2;
inline constexpr Byte kNewestVersionRead = 4;
inline constexpr Byte kVersionWritten = 3;

/// The sizes of the parts of a frame's header: identifier, big-endian size, two flag bytes if any.
struct FrameLayout {
  std::size_t identifierSize;
  std::size_t sizeSize;
  std::size_t headerSize;
};
inline constexpr FrameLayout kFrameLayoutOfVersion2{3, 3, 6};
inline constexpr FrameLayout kFrameLayoutOfVersion3{4, 4, 10};  // and of version 4

inline constexpr Byte kLatin1Encoding = 0;

/// A written tag's area is a multiple of this size.
inline constexpr std::size_t kTagStep = 2048;

/// The identifiers of version 2 that are replaced by those of version 3.
inline constexpr std::array<std::pair<std::string_view, std::string_view>, 8>
    kIdentifiersOfVersion2{{{"TP1", "TPE1"},
                            {"TT2", "TIT2"},
                            {"TAL", "TALB"},
                            {"COM", "COMM"},
                            {"TRK", "TRCK"},
                            {"TEN", "TENC"},
                            {"TYE", "TYER"},
                            {"TCO", "TCON"}}};

}  // namespace repvolta
