#include "clips/SoundLevel.h"

#include <algorithm>
#include <cmath>

namespace repvolta {
namespace {

constexpr std::uint32_t kMomentsPerSecond = 10;

}  // namespace

double Decibels(double magnitude) {
  return magnitude > 0 ? std::max(20 * std::log10(magnitude), kLowestLevel) : kLowestLevel;
}

SoundLevel LevelOf(std::span<const float> samples) {
  if (samples.empty()) return {};
  double peak = 0;
  double squares = 0;
  for (const double sample : samples) {
    peak = std::max(peak, std::abs(sample));
    squares += sample * sample;
  }
  return {Decibels(peak), Decibels(std::sqrt(squares / static_cast<double>(samples.size())))};
}

LevelMeter::LevelMeter(std::uint32_t rate) : longest_(rate / kMomentsPerSecond) {}

void LevelMeter::Add(std::span<const float> samples) {
  last_.insert(last_.end(), samples.begin(), samples.end());
  if (last_.size() <= longest_) return;
  last_.erase(last_.begin(), last_.end() - static_cast<std::ptrdiff_t>(longest_));
}

SoundLevel LevelMeter::Level() const { return LevelOf(last_); }

}  // namespace repvolta
