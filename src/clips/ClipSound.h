#pragma once

#include <span>
#include <vector>

#include "sound/Sound.h"

namespace repvolta {

/// The format of every recorded clip, so that clips can be joined byte by byte.
inline constexpr WavFormat kClipFormat{.rate = 16000, .bits = 16, .channels = 1};

inline constexpr double kClipLoudness = -18;  // LUFS, of clips that are joined
inline constexpr float kClipPeak = 0.891F;    // -1 dBFS

/// Turns down peaks above kClipPeak, together with a few milliseconds around them, so that nothing
/// is clipped.
void LimitPeaks(Sound& sound);

/// The loudness in LUFS of the sounds played one after another, repeated until they are long enough
/// to measure. All are at the clips' rate. Minus infinity for silence.
double JoinedLoudness(std::span<const Sound> sounds);

/// Brings the clips close to one loudness, then applies one gain to all, so that they have the
/// wanted loudness in LUFS when joined; limits their peaks.
void LevelClips(std::vector<Sound>& sounds, double wanted = kClipLoudness);

}  // namespace repvolta
