#pragma once

#include <span>
#include <stdexcept>

#include "sound/Sound.h"

namespace repvolta {

/// The reason why a file's sound cannot be read, in words for the user: "It is no WAV file".
class WavError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The sound of a WAV file, its channels mixed into one. Reads integer samples of 8, 16, 24 and 32
/// bits and floating-point samples of 32 and 64 bits, up to 8 channels, 1 kHz to 384 kHz. A
/// truncated file gives the sound up to its end. Throws WavError.
Sound ReadWav(std::span<const Byte> file);

}  // namespace repvolta
