#pragma once

#include <cstdint>

#include "base/File.h"
#include "mp3/Id3v2Frames.h"

namespace repvolta {

/// The position of a file's ID3v2 tag and the content of its header.
struct Id3v2Place {
  /// Position, from 1, just past the marker "ID3"; 0 when there is none.
  std::int32_t position = 0;
  Byte version = 0;

  /// The size field as a plain big-endian number (quirk 60); 0 for a version that is not read.
  std::int32_t size = 0;

  std::uint64_t Offset() const;  // of the marker, from 0
};

/// Looks for "ID3", from `start` until the audio (FF FB) begins or the file ends. Throws FileError,
/// and std::overflow_error when the position of "ID3" does not fit 31 bits (quirk 62).
Id3v2Place LocateId3v2(const File& file, std::uint64_t start = 0);

/// False when LocateId3v2 would find nothing in a file that starts at `offset`. Throws FileError.
bool HasId3v2Behind(const File& file, std::uint64_t offset);

/// The frames of the tag, as far as they can be read. Of an absurdly large tag only a part is kept,
/// which limits memory use. Throws FileError.
Id3v2Frames ReadId3v2Frames(const File& file, const Id3v2Place& place);

}  // namespace repvolta
