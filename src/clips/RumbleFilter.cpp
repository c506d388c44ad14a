#include "clips/RumbleFilter.h"

#include <cmath>
#include <numbers>

namespace repvolta {
namespace {

/// The deepest voices have their lowest note at 80 Hz, but what makes them heard lies above 200.
constexpr double kCorner = 150;  // Hz

}  // namespace

RumbleFilter::RumbleFilter(std::uint32_t rate) {
  // A Butterworth filter by the bilinear transform.
  const double k = std::tan(std::numbers::pi * kCorner / rate);
  gain_ = 1 / (1 + std::numbers::sqrt2 * k + k * k);
  a1_ = 2 * (k * k - 1) * gain_;
  a2_ = (1 - std::numbers::sqrt2 * k + k * k) * gain_;
}

float RumbleFilter::Next(float sample) {
  const double in = gain_ * sample;
  const double out = in + first_;
  first_ = -2 * in - a1_ * out + second_;
  second_ = in - a2_ * out;
  return static_cast<float>(out);
}

}  // namespace repvolta
