#pragma once

#include "base/Bytes.h"

namespace repvolta {

/// An MP3 file without tags whose play time is that many whole seconds: the header of a frame of 32
/// kbit/s (4000 bytes a second), then zeros.
inline Bytes SongBytes(int seconds) {
  Bytes song{0xFF, 0xFB, 0x10, 0x00};
  song.resize(static_cast<std::size_t>(seconds) * 4000 + 100);
  return song;
}

}  // namespace repvolta
