#include <cmath>
#include <gtest/gtest.h>
#include <vector>

#include "clips/SoundLevel.h"

namespace repvolta {
namespace {

std::vector<float> Sine(std::size_t count, float peak) {
  std::vector<float> samples(count);
  for (std::size_t i = 0; i < count; ++i) {
    samples[i] = peak * std::sin(0.1F * static_cast<float>(i));
  }
  return samples;
}

TEST(SoundLevel, OfASineHasItsMeanThreeBelowItsPeak) {
  const SoundLevel level = LevelOf(Sine(48000, 0.5F));
  EXPECT_NEAR(level.peak, -6.02, 0.05);
  EXPECT_NEAR(level.rms, -9.03, 0.05);
}

TEST(SoundLevel, OfSilenceIsTheLowest) {
  EXPECT_EQ(LevelOf(std::vector<float>(100)).peak, kLowestLevel);
  EXPECT_EQ(LevelOf({}).rms, kLowestLevel);
}

TEST(LevelMeter, ShowsTheLastTenthOfASecond) {
  LevelMeter meter(48000);
  EXPECT_EQ(meter.Level().peak, kLowestLevel);
  meter.Add(Sine(48000, 0.5F));
  EXPECT_NEAR(meter.Level().peak, -6.02, 0.05);
  meter.Add(std::vector<float>(4700));
  EXPECT_NEAR(meter.Level().peak, -6.02, 0.05);
  meter.Add(std::vector<float>(100));
  EXPECT_EQ(meter.Level().peak, kLowestLevel);
}

}  // namespace
}  // namespace repvolta
