#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <random>
#include <utility>
#include <vector>

#include "clips/SoundLevel.h"
#include "platform/Microphone.h"
#include "sound/Sound.h"

namespace repvolta {

inline std::size_t SamplesIn(double seconds) {
  return static_cast<std::size_t>(std::lround(seconds * Microphone::kRate));
}

/// The sound at the microphone's rate with a peak in dBFS.
inline Sound AtPeak(const Sound& sound, double peak) {
  Sound result = ConvertRate(sound, Microphone::kRate);
  Scale(result, static_cast<float>(std::pow(10, peak / 20) / Peak(result)));
  return result;
}

/// The sound, as loud in the mean as a level in dBFS.
inline Sound AtLevel(Sound sound, double level) {
  const double missing = level - LevelOf(sound.samples).rms;
  Scale(sound, static_cast<float>(std::pow(10, missing / 20)));
  return sound;
}

/// What a room sounds like, at a level in dBFS.
inline Sound Noise(double seconds, double level) {
  std::mt19937 numbers(1);
  std::uniform_real_distribution<float> values(-1, 1);
  Sound sound{Microphone::kRate, std::vector<float>(SamplesIn(seconds))};
  std::generate(sound.samples.begin(), sound.samples.end(), [&] { return values(numbers); });
  return AtLevel(std::move(sound), level);
}

/// What mains of 50 or 60 Hz sound like, with their harmonics, at a level in dBFS.
inline Sound Hum(double seconds, double mains, double level) {
  Sound sound{Microphone::kRate, std::vector<float>(SamplesIn(seconds))};
  for (std::size_t i = 0; i < sound.samples.size(); ++i) {
    const double angle = 2 * std::numbers::pi * mains * static_cast<double>(i) / Microphone::kRate;
    for (const double harmonic : {1, 2, 3, 5, 7}) {
      sound.samples[i] += static_cast<float>(std::sin(harmonic * (angle + 1)) / harmonic);
    }
  }
  return AtLevel(std::move(sound), level);
}

/// Lets `other` sound in `sound` from a second on, within full scale.
inline void Mix(Sound& sound, const Sound& other, double second) {
  const std::size_t begin = SamplesIn(second);
  sound.samples.resize(std::max(sound.samples.size(), begin + other.samples.size()));
  for (std::size_t i = 0; i < other.samples.size(); ++i) {
    float& sample = sound.samples[begin + i];
    sample = std::clamp(sample + other.samples[i], -1.0F, 1.0F);
  }
}

}  // namespace repvolta
