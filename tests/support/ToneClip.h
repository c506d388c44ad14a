#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

#include "clips/ClipSound.h"
#include "sound/Sound.h"

namespace repvolta {

/// A clip of half a second in which a tone of that level sounds.
inline Bytes ToneClip(float level) {
  Sound tone{kClipFormat.rate, std::vector<float>(8000)};
  for (std::size_t i = 0; i < tone.samples.size(); ++i) {
    tone.samples[i] = level * std::sin(0.3F * static_cast<float>(i));
  }
  return EncodeWav(tone, kClipFormat);
}

}  // namespace repvolta
