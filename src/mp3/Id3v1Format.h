#pragma once

#include <cstddef>
#include <string_view>

#include "base/Bytes.h"

namespace repvolta {

/// The tag in the last 128 bytes of a file, byte for byte; explained in docs/formats/id3v1.md.
struct Id3v1Record {
  char identifier[3] = {'T', 'A', 'G'};
  char title[30] = {};
  char artist[30] = {};
  char album[30] = {};
  char year[4] = {};
  char comment[30] = {};
  Byte genre = 0;

  bool operator==(const Id3v1Record&) const = default;
};

inline constexpr std::size_t kId3v1Size = 128;
inline constexpr std::string_view kId3v1Marker = "TAG";

/// Version 1.1: a zero byte at this place in the comment is followed by the track number.
inline constexpr std::size_t kTrackMarkOffset = 28;
inline constexpr std::size_t kTrackOffset = 29;

static_assert(sizeof(Id3v1Record) == kId3v1Size);
static_assert(offsetof(Id3v1Record, comment) == 97 && offsetof(Id3v1Record, genre) == 127);

}  // namespace repvolta
