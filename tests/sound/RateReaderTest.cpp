#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sound/RateReader.h"

namespace repvolta {
namespace {

using testing::Each;
using testing::Le;

Sound Tone(std::uint32_t rate, std::size_t count) {
  Sound tone{rate, std::vector<float>(count)};
  for (std::size_t i = 0; i < count; ++i) {
    tone.samples[i] = std::sin(600 * static_cast<float>(i) / static_cast<float>(rate));
  }
  return tone;
}

struct Blocks {
  std::vector<float> samples;
  std::vector<std::size_t> sizes;
};

Blocks ReadAll(const Sound& sound, std::uint32_t rate) {
  const WholeSound source(sound);
  RateReader reader(source, rate);
  Blocks blocks;
  for (auto block = reader.Next(); !block.empty(); block = reader.Next()) {
    blocks.samples.insert(blocks.samples.end(), block.begin(), block.end());
    blocks.sizes.push_back(block.size());
  }
  EXPECT_EQ(blocks.samples.size(), reader.Size());
  EXPECT_TRUE(reader.Next().empty());
  return blocks;
}

TEST(RateReader, GivesTheSamplesOfTheSourceAtItsOwnRate) {
  const Sound tone = Tone(16000, 20001);
  EXPECT_EQ(ReadAll(tone, 16000).samples, tone.samples);
}

TEST(RateReader, GoesOnWithoutAJumpFromBlockToBlock) {
  const std::vector<float> samples = ReadAll(Tone(1000, 3000), 16000).samples;
  const std::vector<float> wanted = Tone(16000, 48000).samples;
  ASSERT_EQ(samples.size(), wanted.size());
  for (std::size_t i = 1000; i < 47000; ++i) EXPECT_NEAR(samples[i], wanted[i], 0.01) << i;
}

TEST(RateReader, GivesBlocksAlsoOfALongSound) {
  for (const std::uint32_t rate : {1000U, 8000U, 16000U, 48000U, 384000U}) {
    EXPECT_THAT(ReadAll(Tone(rate, 100000), 16000).sizes, Each(Le(8192U))) << rate;
  }
}

TEST(RateReader, GivesNothingOfNothing) {
  EXPECT_TRUE(ReadAll({1000, {}}, 16000).samples.empty());
  EXPECT_TRUE(ReadAll({16000, {}}, 16000).samples.empty());
}

TEST(RateReader, CanBeReadAgainByAnotherReader) {
  const Sound tone = Tone(22050, 30000);
  EXPECT_EQ(ReadAll(tone, 16000).samples, ReadAll(tone, 16000).samples);
}

}  // namespace
}  // namespace repvolta
