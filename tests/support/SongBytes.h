#pragma once

#include "support/Mp3Bytes.h"

namespace repvolta {

/// An MP3 file without tags whose play time is that many whole seconds: one long frame of 32
/// kbit/s, which is 4000 bytes a second.
inline Bytes SongBytes(int seconds) {
  return Mp3Bytes().Frame({.bitRate = 1}, static_cast<std::size_t>(seconds) * 4000 + 100);
}

}  // namespace repvolta
