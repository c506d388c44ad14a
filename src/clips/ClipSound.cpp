#include "clips/ClipSound.h"

#include <algorithm>
#include <cmath>
#include <ebur128.h>
#include <limits>
#include <memory>
#include <new>

namespace repvolta {
namespace {

constexpr std::size_t kLimiterReach = 48;  // 3 ms
constexpr double kEnoughToMeasure = 3.0;   // seconds; loudness is measured in blocks of 0.4
constexpr double kEvenness = 0.75;
constexpr int kLevelRounds = 20;
constexpr double kNearEnough = 0.05;  // dB

std::size_t SampleCount(double seconds) {
  return static_cast<std::size_t>(std::lround(seconds * kClipFormat.rate));
}

std::span<const float> Around(const std::vector<float>& values, std::size_t index) {
  const std::size_t from = index < kLimiterReach ? 0 : index - kLimiterReach;
  const std::size_t to = std::min(index + kLimiterReach + 1, values.size());
  return std::span(values).subspan(from, to - from);
}

/// The gain that brings down the highest peak around a sample.
float GainAround(const std::vector<float>& samples, std::size_t index) {
  float peak = kClipPeak;
  for (const float sample : Around(samples, index)) peak = std::max(peak, std::abs(sample));
  return kClipPeak / peak;
}

float MeanAround(const std::vector<float>& values, std::size_t index) {
  float sum = 0;
  for (std::size_t i = 0; i <= 2 * kLimiterReach; ++i) {
    const std::size_t position = index + i < kLimiterReach ? 0 : index + i - kLimiterReach;
    sum += values[std::min(position, values.size() - 1)];
  }
  return sum / (2 * kLimiterReach + 1);
}

float Factor(double decibels) { return static_cast<float>(std::pow(10, decibels / 20)); }

/// Removes most of the difference between a clip's loudness and the wanted one; the remaining
/// difference keeps the words natural.
void EvenOut(Sound& sound, double wanted) {
  const double missing = wanted - JoinedLoudness(std::span(&sound, 1));
  if (std::isfinite(missing)) Scale(sound, Factor(missing * kEvenness));
}

struct StateCloser {
  void operator()(ebur128_state* state) const { ebur128_destroy(&state); }
};

}  // namespace

void LimitPeaks(Sound& sound) {
  if (Peak(sound) <= kClipPeak) return;
  const std::size_t count = sound.samples.size();
  std::vector<float> lowest(count);
  for (std::size_t i = 0; i < count; ++i) lowest[i] = GainAround(sound.samples, i);
  // Every gain in the mean is the lowest of a stretch that holds this sample, so the mean is low
  // enough.
  for (std::size_t i = 0; i < count; ++i) {
    sound.samples[i] = std::clamp(sound.samples[i] * MeanAround(lowest, i), -kClipPeak, kClipPeak);
  }
}

double JoinedLoudness(std::span<const Sound> sounds) {
  const std::unique_ptr<ebur128_state, StateCloser> state(
      ebur128_init(kClipFormat.channels, kClipFormat.rate, EBUR128_MODE_I));
  if (!state) throw std::bad_alloc();
  const std::size_t enough = SampleCount(kEnoughToMeasure);
  for (std::size_t fed = 0; fed < enough;) {
    const std::size_t before = fed;
    for (const Sound& sound : sounds) {
      ebur128_add_frames_float(state.get(), sound.samples.data(), sound.samples.size());
      fed += sound.samples.size();
    }
    if (fed == before) return -std::numeric_limits<double>::infinity();
  }
  double loudness = 0;
  ebur128_loudness_global(state.get(), &loudness);
  return loudness;
}

void LevelClips(std::vector<Sound>& sounds, double wanted) {
  for (Sound& sound : sounds) EvenOut(sound, wanted);
  const std::vector<Sound> even = sounds;
  double gain = 0;
  for (int round = 0; round < kLevelRounds; ++round) {
    sounds = even;
    for (Sound& sound : sounds) {
      Scale(sound, Factor(gain));
      LimitPeaks(sound);
    }
    const double missing = wanted - JoinedLoudness(sounds);
    if (!std::isfinite(missing) || std::abs(missing) < kNearEnough) return;
    // The next round makes up for the loudness that the limiter takes away.
    gain += missing;
  }
}

}  // namespace repvolta
