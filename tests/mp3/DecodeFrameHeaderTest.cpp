#include <gtest/gtest.h>

#include "mp3/RepvoltaMP3.h"

#include "support/Mp3Bytes.h"

namespace repvolta {
namespace {

/// The info decoded from one header at the start of a file of length 0.
MP3Info Decode(const FrameFields& fields) {
  RepvoltaMP3 mp3;
  mp3.DecodeFrameHeader(fields.LittleEndian(), 1);
  return mp3.Info();
}

bool Accepts(const FrameFields& fields) {
  return RepvoltaMP3().DecodeFrameHeader(fields.LittleEndian(), 1);
}

std::vector<int> SampleRates(std::uint32_t version) {
  std::vector<int> rates;
  for (std::uint32_t i = 0; i < 4; ++i) {
    rates.push_back(Decode({.version = version, .sampleRate = i}).sampleRate);
  }
  return rates;
}

std::vector<int> BitRates(std::uint32_t version, std::uint32_t layer) {
  std::vector<int> rates;
  for (std::uint32_t i = 0; i < 16; ++i) {
    rates.push_back(Decode({.version = version, .layer = layer, .bitRate = i}).bitRate);
  }
  return rates;
}

using Rates = std::vector<int>;

TEST(IsFrameSync, WantsElevenBitsSet) {
  EXPECT_TRUE(RepvoltaMP3::IsFrameSync(0x0000E0FF));
  EXPECT_TRUE(RepvoltaMP3::IsFrameSync(0xFFFFFFFF));
  EXPECT_FALSE(RepvoltaMP3::IsFrameSync(0xFFFFC0FF));
  EXPECT_FALSE(RepvoltaMP3::IsFrameSync(0xFFFFE0FE));
}

TEST(ReadBigEndianLong, TakesTheFirstByteAsTheHighest) {
  EXPECT_EQ(RepvoltaMP3::ReadBigEndianLong(Bytes{0x12, 0x34, 0x56, 0x78}), 0x12345678);
  EXPECT_EQ(RepvoltaMP3::ReadBigEndianLong(Bytes{0xFF, 0xFF, 0xFF, 0xFF}), -1);
}

TEST(DecodeSyncsafe, JoinsGroupsOfSevenBits) {
  EXPECT_EQ(RepvoltaMP3::DecodeSyncsafe(0x00000201), 257);
  EXPECT_EQ(RepvoltaMP3::DecodeSyncsafe(0x7F7F7F7F), 0x0FFFFFFF);
  EXPECT_EQ(RepvoltaMP3::DecodeSyncsafe(-1), 0x0FFFFFFF);
}

TEST(DecodeFrameHeader, KnowsTheSampleRates) {
  EXPECT_EQ(SampleRates(0), (Rates{11025, 12000, 8000, 0}));
  EXPECT_EQ(SampleRates(1), (Rates{0, 0, 0, 0}));
  EXPECT_EQ(SampleRates(2), (Rates{22050, 24000, 26000, 0}));
  EXPECT_EQ(SampleRates(3), (Rates{44100, 48000, 32000, 0}));
}

TEST(DecodeFrameHeader, KnowsTheBitRatesOfMpeg1) {
  EXPECT_EQ(BitRates(3, 3),
            (Rates{0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448, 0}));
  EXPECT_EQ(BitRates(3, 2),
            (Rates{0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 284, 0}));
  EXPECT_EQ(BitRates(3, 1),
            (Rates{0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 0}));
  EXPECT_EQ(BitRates(3, 0), Rates(16, 0));
}

TEST(DecodeFrameHeader, KnowsTheBitRatesOfMpeg2And25) {
  for (const std::uint32_t version : {0U, 2U}) {
    EXPECT_EQ(BitRates(version, 3),
              (Rates{0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256, 0}));
    for (const std::uint32_t layer : {1U, 2U}) {
      EXPECT_EQ(BitRates(version, layer),
                (Rates{0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160, 0}));
    }
  }
}

TEST(DecodeFrameHeader, RefusesWhatIsReserved) {
  EXPECT_TRUE(Accepts({}));
  EXPECT_FALSE(Accepts({.version = 1}));
  EXPECT_FALSE(Accepts({.layer = 0}));
  EXPECT_FALSE(Accepts({.bitRate = 0}));
  EXPECT_FALSE(Accepts({.bitRate = 15}));
  EXPECT_FALSE(Accepts({.sampleRate = 3}));
  EXPECT_FALSE(RepvoltaMP3().DecodeFrameHeader(0x0090FB7F, 1)) << "no sync";
}

TEST(DecodeFrameHeader, RefusesAPositionThatOverflows) {
  RepvoltaMP3 mp3;
  EXPECT_FALSE(
      mp3.DecodeFrameHeader(kMpeg1Layer3.LittleEndian(), std::numeric_limits<std::int32_t>::min()));
  EXPECT_FALSE(mp3.Info().valid);
}

TEST(DecodeFrameHeader, NamesVersionAndLayer) {
  EXPECT_EQ(Decode({.version = 0}).mpegVersion, 2.5F);
  EXPECT_EQ(Decode({.version = 2}).mpegVersion, 2.0F);
  EXPECT_EQ(Decode({.version = 3}).mpegVersion, 1.0F);
  EXPECT_EQ(Decode({.layer = 1}).layer, 3);
  EXPECT_EQ(Decode({.layer = 2}).layer, 2);
  EXPECT_EQ(Decode({.layer = 3}).layer, 1);
}

TEST(DecodeFrameHeader, NamesTheChannelModes) {
  EXPECT_EQ(Decode({.channelMode = 0}).channelMode, "Stereo");
  EXPECT_EQ(Decode({.channelMode = 1}).channelMode, "Joint stereo");
  EXPECT_EQ(Decode({.channelMode = 2}).channelMode, "Dual channel");
  EXPECT_EQ(Decode({.channelMode = 3}).channelMode, "Single channel");
}

TEST(DecodeFrameHeader, NamesTheEmphases) {
  EXPECT_EQ(Decode({.emphasis = 0}).emphasis, "None");
  EXPECT_EQ(Decode({.emphasis = 1}).emphasis, "50/15 ms");
  EXPECT_EQ(Decode({.emphasis = 2}).emphasis, "Reserved");
  EXPECT_EQ(Decode({.emphasis = 3}).emphasis, "CCIT j.17");
}

TEST(DecodeFrameHeader, ReadsEachFlagFromItsBit) {
  const MP3Info plain = Decode({});
  EXPECT_FALSE(plain.crcProtected || plain.isPrivate || plain.copyright || plain.original);
  EXPECT_EQ(plain.padding, 0);

  EXPECT_TRUE(Decode({.protection = 0}).crcProtected);
  EXPECT_TRUE(Decode({.isPrivate = 1}).isPrivate);
  EXPECT_TRUE(Decode({.copyright = 1}).copyright);
  EXPECT_TRUE(Decode({.original = 1}).original);
  EXPECT_EQ(Decode({.padding = 1}).padding, 1);
}

TEST(DecodeFrameHeader, MeasuresAFrame) {
  EXPECT_EQ(Decode({}).frameLength, 417);
  EXPECT_EQ(Decode({.padding = 1}).frameLength, 418);
  EXPECT_EQ(Decode({.layer = 3, .bitRate = 4}).frameLength, 34 * 4);
  EXPECT_EQ(Decode({.layer = 3, .bitRate = 4, .padding = 1}).frameLength, 35 * 4);
}

TEST(DecodeFrameHeader, MeasuresFramesOfMpeg2AsIfOfMpeg1) {
  EXPECT_EQ(Decode({.version = 2, .bitRate = 8}).frameLength, 144000 * 64 / 22050);
}

TEST(DecodeFrameHeader, ForgetsTheBitRateOfAnEarlierCandidate) {
  RepvoltaMP3 mp3;
  mp3.DecodeFrameHeader(kMpeg1Layer3.LittleEndian(), 1);
  mp3.DecodeFrameHeader(FrameFields{.sampleRate = 3}.LittleEndian(), 1);
  EXPECT_EQ(mp3.Info().bitRate, 0);
}

}  // namespace
}  // namespace repvolta
