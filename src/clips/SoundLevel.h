#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace repvolta {

inline constexpr double kLowestLevel = -96;  // dBFS, also that of silence

/// How loud a stretch of sound is, in dBFS: a sine at full scale has 0 and -3.
struct SoundLevel {
  double peak = kLowestLevel;
  double rms = kLowestLevel;
};

/// kLowestLevel for no samples.
SoundLevel LevelOf(std::span<const float> samples);

/// The dBFS of a magnitude, at least kLowestLevel.
double Decibels(double magnitude);

/// What a level meter shows: the level of the last moment.
class LevelMeter {
 public:
  explicit LevelMeter(std::uint32_t rate);

  void Add(std::span<const float> samples);

  /// Of the last tenth of a second.
  SoundLevel Level() const;

 private:
  std::size_t longest_;
  std::vector<float> last_;
};

}  // namespace repvolta
