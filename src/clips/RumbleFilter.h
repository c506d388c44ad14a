#pragma once

#include <cstdint>

namespace repvolta {

/// Leaves out what is deeper than a voice: steps, wind, the ground note of the mains, an offset.
class RumbleFilter {
 public:
  explicit RumbleFilter(std::uint32_t rate);

  float Next(float sample);

 private:
  // A high-pass filter of the second order, and its state.
  double gain_ = 1;
  double a1_ = 0;
  double a2_ = 0;
  double first_ = 0;
  double second_ = 0;
};

}  // namespace repvolta
