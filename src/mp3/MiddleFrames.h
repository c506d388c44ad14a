#pragma once

#include <cstdint>
#include <string>

#include "base/Bytes.h"

namespace repvolta {

/// Frames of a song that follow each other, to be decoded without the rest of it.
struct FramesOfSong {
  Bytes bytes;
  std::uint32_t rate = 0;  // samples a second
  std::uint16_t channels = 0;

  bool operator==(const FramesOfSong&) const = default;
};

/// About `seconds` of Layer III frames from the middle of the file, all of one kind; what there is
/// of a shorter song. Without bytes when there are no such frames. Reads at most 2 MiB, which is
/// more than fifty seconds. Throws FileError.
FramesOfSong MiddleFrames(const std::string& path, double seconds);

}  // namespace repvolta
