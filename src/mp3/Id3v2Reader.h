#pragma once

#include <cstdint>

#include "base/File.h"
#include "mp3/Id3v2Frames.h"

namespace repvolta {

/// Where the ID3v2 tag of a file stands and what its header says.
struct Id3v2Place {
  /// Position, from 1, just past the marker "ID3"; 0 when there is none.
  std::int32_t position = 0;
  Byte version = 0;

  /// The size field as a plain big-endian number (quirk 60); 0 for a version that is not read.
  std::int32_t size = 0;

  std::uint64_t Offset() const;  // of the marker, from 0
};

/// Looks for "ID3" until the audio (FF FB) begins or the file ends (quirk 62). Throws FileError,
/// and std::overflow_error when it stands beyond 31 bits.
Id3v2Place LocateId3v2(const File& file);

/// False when LocateId3v2 would find nothing in what is left of the file from `offset` on. Throws
/// FileError.
bool HasId3v2Behind(const File& file, std::uint64_t offset);

/// The frames of the tag, as far as they can be read. Of a tag that is larger than any sensible one
/// only a part is held, so that memory stays small. Throws FileError.
Id3v2Frames ReadId3v2Frames(const File& file, const Id3v2Place& place);

}  // namespace repvolta
