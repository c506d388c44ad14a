#pragma once

#include "base/Bytes.h"
#include "sound/WavFormat.h"

namespace repvolta {

/// A clip as the program writes it: the 46-byte header of 16 kHz, 16 bits, one channel, then the
/// sample bytes.
inline Bytes ClipBytes(const Bytes& samples) {
  Bytes file = WavHeader({.rate = 16000, .bits = 16, .channels = 1},
                         static_cast<std::uint32_t>(samples.size()));
  file.insert(file.end(), samples.begin(), samples.end());
  return file;
}

}  // namespace repvolta
