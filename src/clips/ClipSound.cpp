#include "clips/ClipSound.h"

#include <algorithm>
#include <cmath>
#include <ebur128.h>
#include <limits>
#include <memory>
#include <new>
#include <numeric>

namespace repvolta {
namespace {

constexpr std::size_t kWindow = 80;        // 5 ms
constexpr std::size_t kLimiterReach = 48;  // 3 ms
constexpr double kEnoughToMeasure = 3.0;   // seconds; loudness is measured in blocks of 0.4
constexpr std::size_t kFadeOut = 320;      // 20 ms
constexpr double kEvenness = 0.75;
constexpr int kLevelRounds = 20;
constexpr double kNearEnough = 0.05;  // dB

// A word begins and ends where its level passes a threshold between these parts of its peak.
constexpr float kQuietest = 0.0126F;         // -38 dB
constexpr float kLoudestBackground = 0.04F;  // -28 dB
constexpr float kAboveBackground = 3;

std::size_t SampleCount(double seconds) {
  return static_cast<std::size_t>(std::lround(seconds * kClipFormat.rate));
}

float RootMeanSquare(std::span<const float> samples) {
  const float sum = std::inner_product(samples.begin(), samples.end(), samples.begin(), 0.0F);
  return std::sqrt(sum / static_cast<float>(samples.size()));
}

void RemoveOffset(Sound& sound) {
  const double sum = std::accumulate(sound.samples.begin(), sound.samples.end(), 0.0);
  const auto mean = static_cast<float>(sum / static_cast<double>(sound.samples.size()));
  for (float& sample : sound.samples) sample -= mean;
}

/// The levels of the sound's windows; the last window includes the remainder.
std::vector<float> WindowLevels(std::span<const float> samples) {
  std::vector<float> levels;
  for (; samples.size() >= 2 * kWindow; samples = samples.subspan(kWindow)) {
    levels.push_back(RootMeanSquare(samples.first(kWindow)));
  }
  if (!samples.empty()) levels.push_back(RootMeanSquare(samples));
  return levels;
}

float WordThreshold(const std::vector<float>& levels, float peak) {
  const float background = *std::min_element(levels.begin(), levels.end());
  return std::clamp(background * kAboveBackground, peak * kQuietest, peak * kLoudestBackground);
}

/// Positions in samples.
struct Range {
  std::size_t begin;
  std::size_t end;
};

Range WordRange(const Sound& sound) {
  const std::vector<float> levels = WindowLevels(sound.samples);
  const float threshold = WordThreshold(levels, Peak(sound));
  const auto isLoud = [threshold](float level) { return level >= threshold; };
  const auto first = std::find_if(levels.begin(), levels.end(), isLoud);
  const auto last = std::find_if(levels.rbegin(), levels.rend(), isLoud).base();
  const auto begin = static_cast<std::size_t>(first - levels.begin()) * kWindow;
  const auto end = static_cast<std::size_t>(last - levels.begin()) * kWindow;
  return {begin, last == levels.end() ? sound.samples.size() : end};
}

/// Fades in over the part before the word and out over the first kFadeOut samples after it; the
/// rest becomes silent.
void FadeEdges(std::vector<float>& samples) {
  const std::size_t before = SampleCount(kSecondsBeforeWord);
  const std::size_t behind = SampleCount(kSecondsBehindWord);
  for (std::size_t i = 0; i < before; ++i) {
    samples[i] *= static_cast<float>(i) / static_cast<float>(before);
  }
  const std::size_t end = samples.size() - behind;
  for (std::size_t i = 0; i < behind; ++i) {
    const float left = 1 - static_cast<float>(i) / static_cast<float>(kFadeOut);
    samples[end + i] *= std::max(left, 0.0F);
  }
}

float LowestAround(const std::vector<float>& values, std::size_t index) {
  const std::size_t from = index < kLimiterReach ? 0 : index - kLimiterReach;
  const std::size_t to = std::min(index + kLimiterReach + 1, values.size());
  return *std::min_element(values.begin() + static_cast<std::ptrdiff_t>(from),
                           values.begin() + static_cast<std::ptrdiff_t>(to));
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
void EvenOut(Sound& sound) {
  const double missing = kClipLoudness - JoinedLoudness(std::span(&sound, 1));
  if (std::isfinite(missing)) Scale(sound, Factor(missing * kEvenness));
}

struct StateCloser {
  void operator()(ebur128_state* state) const { ebur128_destroy(&state); }
};

}  // namespace

Sound TrimToWord(const Sound& recording) {
  Sound sound = ConvertRate(recording, kClipFormat.rate);
  if (sound.samples.empty()) return sound;
  RemoveOffset(sound);
  if (Peak(sound) < 1e-4F) return {kClipFormat.rate, {}};
  const Range word = WordRange(sound);
  const std::size_t before = SampleCount(kSecondsBeforeWord);
  const std::size_t behind = SampleCount(kSecondsBehindWord);
  Sound clip{kClipFormat.rate, std::vector<float>(before + (word.end - word.begin) + behind)};
  for (std::size_t i = 0; i < clip.samples.size(); ++i) {
    const std::size_t position = word.begin + i;
    const bool isThere = position >= before && position - before < sound.samples.size();
    if (isThere) clip.samples[i] = sound.samples[position - before];
  }
  FadeEdges(clip.samples);
  return clip;
}

void LimitPeaks(Sound& sound) {
  if (Peak(sound) <= kClipPeak) return;
  const std::size_t count = sound.samples.size();
  std::vector<float> gains(count);
  std::vector<float> lowest(count);
  for (std::size_t i = 0; i < count; ++i) {
    gains[i] = kClipPeak / std::max(kClipPeak, std::abs(sound.samples[i]));
  }
  for (std::size_t i = 0; i < count; ++i) lowest[i] = LowestAround(gains, i);
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

void LevelClips(std::vector<Sound>& sounds) {
  for (Sound& sound : sounds) EvenOut(sound);
  const std::vector<Sound> even = sounds;
  double gain = 0;
  for (int round = 0; round < kLevelRounds; ++round) {
    sounds = even;
    for (Sound& sound : sounds) {
      Scale(sound, Factor(gain));
      LimitPeaks(sound);
    }
    const double missing = kClipLoudness - JoinedLoudness(sounds);
    if (!std::isfinite(missing) || std::abs(missing) < kNearEnough) return;
    // The next round makes up for the loudness that the limiter takes away.
    gain += missing;
  }
}

}  // namespace repvolta
