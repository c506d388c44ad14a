#pragma once

#include <span>
#include <vector>

#include "sound/Sound.h"

namespace repvolta {

/// What every recorded clip is, so that clips can be joined byte by byte.
inline constexpr WavFormat kClipFormat{.rate = 16000, .bits = 16, .channels = 1};

inline constexpr double kSecondsBeforeWord = 0.010;
inline constexpr double kSecondsBehindWord = 0.060;
inline constexpr double kClipLoudness = -18;  // LUFS, of clips that are joined
inline constexpr float kClipPeak = 0.891F;    // -1 dBFS

/// The word alone at the clips' rate: the silence around it cut or filled up to what a clip has,
/// fading out to a last sample of zero. Empty when there is no sound.
Sound TrimToWord(const Sound& recording);

/// Turns down what is louder than kClipPeak, a few milliseconds around it too, so that nothing is
/// clipped.
void LimitPeaks(Sound& sound);

/// The loudness in LUFS of the sounds, one behind the other, again and again until there is enough
/// to measure. All at the clips' rate. Minus infinity for silence.
double JoinedLoudness(std::span<const Sound> sounds);

/// Brings clips near to one loudness, and then all of them by one gain to kClipLoudness when they
/// are joined, with limited peaks.
void LevelClips(std::vector<Sound>& sounds);

}  // namespace repvolta
