#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <vector>

#include "platform/Microphone.h"

namespace repvolta {

/// What a microphone hears, made piece by piece: SpokenSound().Quiet(0.4).Word().Quiet(0.9).
class SpokenSound {
 public:
  /// A quiet room: noise of so many dBFS.
  SpokenSound& Quiet(double seconds, double level = -75) {
    const double most = Magnitude(level) * std::sqrt(3.0);
    return Add(seconds, [&](double /*time*/) { return most * Noise(); });
  }

  /// Syllables of a voice, whose loudest sample has so many dBFS.
  SpokenSound& Word(double seconds = 0.5, double peak = -12) {
    const double size = Magnitude(peak);
    return Add(seconds, [&](double time) {
      const double envelope = 0.35 + 0.65 * std::abs(std::sin(kSyllables * time));
      return size * envelope * Voice(time);
    });
  }

  const std::vector<float>& Get() const { return samples_; }

 private:
  static constexpr double kPitch = 140;    // Hz
  static constexpr double kSyllables = 9;  // radians a second
  static constexpr int kHarmonics = 12;

  static double Magnitude(double level) { return std::pow(10, level / 20); }

  /// At most 1.
  static double Voice(double time) {
    double sum = 0;
    double most = 0;
    for (int i = 1; i <= kHarmonics; ++i) {
      sum += std::sin(2 * std::numbers::pi * kPitch * i * time) / i;
      most += 1.0 / i;
    }
    return sum / most * 1.6;
  }

  /// From -1 to 1, the same in each run.
  double Noise() {
    seed_ = seed_ * 1664525U + 1013904223U;
    return static_cast<double>(seed_) / 2147483648.0 - 1;
  }

  template <class Sample>
  SpokenSound& Add(double seconds, Sample sample) {
    const auto count = static_cast<std::size_t>(std::lround(seconds * Microphone::kRate));
    samples_.reserve(samples_.size() + count);
    for (std::size_t i = 0; i < count; ++i) {
      const double value = sample(static_cast<double>(i) / Microphone::kRate);
      samples_.push_back(static_cast<float>(std::min(1.0, std::max(-1.0, value))));
    }
    return *this;
  }

  std::vector<float> samples_;
  std::uint32_t seed_ = 1;
};

/// A word that is said well, with what is needed around it.
inline std::vector<float> GoodWord(double seconds = 0.5) {
  return SpokenSound().Quiet(0.4).Word(seconds).Quiet(0.8).Get();
}

}  // namespace repvolta
