#pragma once

#include <cstdint>
#include <vector>

#include "base/Bytes.h"
#include "sound/WavFormat.h"

namespace repvolta {

/// One channel of sound; full scale is -1 to 1.
struct Sound {
  std::uint32_t rate = 0;  // samples a second
  std::vector<float> samples;
};

/// The largest magnitude of a sample; 0 when there is none.
float Peak(const Sound& sound);

void Scale(Sound& sound, float gain);

/// The same sound with another count of samples a second.
Sound ConvertRate(const Sound& sound, std::uint32_t rate);

/// The sound, `factor` times as long at the same pitch; unchanged for 1.
Sound Stretch(const Sound& sound, double factor);

/// A WAV file with the 46-byte header that holds the sound at the format's rate and sample width,
/// the same in every channel. Samples beyond full scale are clipped. The file has an even length.
Bytes EncodeWav(const Sound& sound, const WavFormat& format);

}  // namespace repvolta
