#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <numbers>

#include "sound/Sound.h"
#include "sound/WavReader.h"

namespace repvolta {
namespace {

using testing::ElementsAre;

Sound Tone(std::uint32_t rate, double seconds, double pitch) {
  Sound tone{rate, std::vector<float>(static_cast<std::size_t>(rate * seconds))};
  for (std::size_t i = 0; i < tone.samples.size(); ++i) {
    tone.samples[i] = static_cast<float>(
        0.5 * std::sin(2 * std::numbers::pi * pitch * static_cast<double>(i) / rate));
  }
  return tone;
}

/// The pitch in hertz, from the zero crossings in the middle half.
double PitchOf(const Sound& sound) {
  const std::size_t from = sound.samples.size() / 4;
  int passages = 0;
  for (std::size_t i = from; i < 3 * from; ++i) {
    if (sound.samples[i] < 0 && sound.samples[i + 1] >= 0) ++passages;
  }
  return passages * static_cast<double>(sound.rate) / static_cast<double>(2 * from);
}

Bytes DataOf(const Bytes& file) { return {file.begin() + kWavHeaderSize, file.end()}; }

TEST(Peak, IsTheLargestMagnitude) {
  EXPECT_EQ(Peak({8000, {0.25F, -0.75F, 0.5F}}), 0.75F);
  EXPECT_EQ(Peak({8000, {}}), 0.0F);
}

TEST(ConvertRate, KeepsPitchLengthAndLevel) {
  for (const std::uint32_t rate : {8000U, 11025U, 48000U}) {
    const Sound sound = ConvertRate(Tone(22050, 1, 1000), rate);
    EXPECT_EQ(sound.rate, rate);
    EXPECT_EQ(sound.samples.size(), rate);
    EXPECT_NEAR(PitchOf(sound), 1000, 5) << rate;
    EXPECT_NEAR(Peak(sound), 0.5, 0.02) << rate;
  }
}

TEST(ConvertRate, RemovesWhatTheNewRateCannotHold) {
  const Sound sound = ConvertRate(Tone(48000, 1, 6000), 8000);
  EXPECT_LT(Peak({8000, {sound.samples.begin() + 1000, sound.samples.end() - 1000}}), 0.001F);
}

TEST(ConvertRate, LeavesNothingOfNothing) {
  EXPECT_TRUE(ConvertRate({22050, {}}, 8000).samples.empty());
}

TEST(ConvertRate, TakesAnythingShortAndAnyRate) {
  for (std::size_t count = 1; count < 60; ++count) {
    for (const std::uint32_t rate : {1000U, 8000U, 44100U, 384000U}) {
      const Sound sound{rate, std::vector<float>(count, 0.5F)};
      EXPECT_NEAR(static_cast<double>(ConvertRate(sound, 16000).samples.size()),
                  static_cast<double>(count) * 16000 / rate, 0.51);
    }
  }
}

TEST(Stretch, ChangesTheLengthAndNotThePitch) {
  for (const double factor : {0.4, 0.7, 1.37, 3.0}) {
    const Sound sound = Stretch(Tone(22050, 1, 200), factor);
    EXPECT_NEAR(static_cast<double>(sound.samples.size()), 22050 * factor, 1) << factor;
    EXPECT_NEAR(PitchOf(sound), 200, 8) << factor;
    EXPECT_NEAR(Peak(sound), 0.5, 0.05) << factor;
  }
}

TEST(Stretch, LeavesTheSoundAloneByFactor1) {
  const Sound tone = Tone(8000, 0.1, 300);
  EXPECT_EQ(Stretch(tone, 1).samples, tone.samples);
}

TEST(EncodeWav, WritesEverySampleExactlyInItsOwnFormat) {
  const Bytes file = EncodeWav({16000, {0, 0.5F, -1.0F, 1.0F / 32768}}, {16000, 16, 1});
  EXPECT_EQ(DataOf(file), (Bytes{0, 0, 0, 0x40, 0, 0x80, 1, 0}));
  EXPECT_EQ(Bytes(file.begin(), file.begin() + kWavHeaderSize), WavHeader({16000, 16, 1}, 8));
}

TEST(EncodeWav, WritesBothChannels) {
  EXPECT_EQ(DataOf(EncodeWav({8000, {0.5F, -0.5F}}, {8000, 16, 2})),
            (Bytes{0, 0x40, 0, 0x40, 0, 0xC0, 0, 0xC0}));
}

TEST(EncodeWav, WritesUnsigned8BitSamples) {
  EXPECT_EQ(DataOf(EncodeWav({8000, {0, 0.5F, -1.0F, 0.99F}}, {8000, 8, 1})),
            (Bytes{0x80, 0xC0, 0, 0xFF}));
}

TEST(EncodeWav, ClipsWhatIsBeyondFullScale) {
  EXPECT_EQ(DataOf(EncodeWav({8000, {1.5F, -1.5F}}, {8000, 16, 1})), (Bytes{0xFF, 0x7F, 0, 0x80}));
  EXPECT_EQ(DataOf(EncodeWav({8000, {1.5F, -1.5F}}, {8000, 8, 1})), (Bytes{0xFF, 0}));
}

TEST(EncodeWav, FillsAnOddLengthWithSilence) {
  const Bytes file = EncodeWav({8000, {0.5F}}, {8000, 8, 1});
  EXPECT_EQ(DataOf(file), (Bytes{0xC0, 0x80}));
  EXPECT_THAT(ReadWav(file).samples, ElementsAre(0.5F, 0.0F));
}

}  // namespace
}  // namespace repvolta
