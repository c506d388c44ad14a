#include <filesystem>
#include <gtest/gtest.h>

#include "mp3/RepvoltaMP3.h"

#include "support/Mp3Bytes.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

MP3Info Read(std::span<const Byte> file) {
  TemporaryFolder folder;
  PutFile("song.mp3", file);
  RepvoltaMP3 mp3;
  mp3.SetFileName("song.mp3");
  return mp3.Info();
}

TEST(XingHeader, GivesFrameCountBitRateAndTime) {
  // 144000 bytes in 200 frames are 720 bytes a frame: 220.5 kbit/s at 44100 Hz, an even 220.
  const MP3Info info = Read(Mp3Bytes().Frame({}, 144000).Xing(1, 200));
  EXPECT_TRUE(info.vbr);
  EXPECT_TRUE(info.valid);
  EXPECT_EQ(info.frameCount, 200);
  EXPECT_EQ(info.bitRate, 2646 / 12);
  EXPECT_EQ(info.playTime, 143999 * 8 / 1000 / 220);
}

TEST(XingHeader, RoundsBeforeItDividesByTwelve) {
  // At 48000 Hz four times the bytes of a frame are rounded: here 599.5 and 599.33.
  const FrameFields at48{.sampleRate = 1};
  EXPECT_EQ(Read(Mp3Bytes().Frame(at48, 1199).Xing(1, 8)).bitRate, 50);
  EXPECT_EQ(Read(Mp3Bytes().Frame(at48, 899).Xing(1, 6)).bitRate, 49);
}

TEST(XingHeader, CountsTagsToo) {
  const Mp3Bytes file = Mp3Bytes()
                            .Id3v2(Id3v2Bytes().Syncsafe().Padding(990))
                            .Frame({}, 142872)
                            .Xing(1, 200)
                            .Id3v1("T");
  EXPECT_EQ(file.Size(), 144000U);
  EXPECT_EQ(Read(file).bitRate, 220);
}

TEST(XingHeader, MakesTheBitRateOfOtherVersionsTwelveTimesTooLow) {
  // 720 bytes a frame at 22050 Hz: 15876000 / 144000 is 110.25, a twelfth of it 9.
  const MP3Info info = Read(Mp3Bytes().Frame(kMpeg2Layer3, 144000).Xing(1, 200));
  EXPECT_EQ(info.bitRate, 9);
  EXPECT_EQ(info.playTime, 143999 * 8 / 1000 / 9);
}

TEST(XingHeader, CountsOnlyExactly36BytesBehindTheFrameHeader) {
  for (const std::size_t offset : {13U, 21U, 35U, 37U}) {
    const MP3Info info = Read(Mp3Bytes().Frame({}, 1000).Xing(1, 200, offset));
    EXPECT_FALSE(info.vbr) << offset;
    EXPECT_EQ(info.bitRate, 128) << offset;
  }
}

TEST(XingHeader, WithoutAFrameCountLeavesTheConstantBitRate) {
  const MP3Info info = Read(Mp3Bytes().Frame({}, 144000).Xing(0xFFFFFFFE, 200));
  EXPECT_TRUE(info.vbr);
  EXPECT_FALSE(info.valid);
  EXPECT_EQ(info.bitRate, 128);
  EXPECT_EQ(info.playTime, 143999 * 8 / 1000 / 128);
}

TEST(XingHeader, IsNotLookedForInTheLast48Bytes) {
  EXPECT_FALSE(Read(Mp3Bytes().Garbage(500).Frame({}, 49).Xing(0, 1)).vbr);
  EXPECT_TRUE(Read(Mp3Bytes().Garbage(500).Frame({}, 50).Xing(0, 1)).vbr);
}

TEST(XingHeader, RaisesADivisionByZeroFrames) {
  EXPECT_THROW(Read(Mp3Bytes().Frame({}, 1000).Xing(1, 0)), DivisionByZero);
}

TEST(XingHeader, RaisesADivisionByABitRateOfZero) {
  EXPECT_THROW(Read(Mp3Bytes().Frame({}, 1000).Xing(1, 1000000)), DivisionByZero);
}

TEST(XingHeader, TakesTheFrameCountAsSigned) {
  const MP3Info info = Read(Mp3Bytes().Frame({}, 144000).Xing(1, 0xFFFFFF38));
  EXPECT_EQ(info.frameCount, -200);
  EXPECT_EQ(info.bitRate, -220);
  EXPECT_EQ(info.playTime, -5);
}

TEST(XingHeader, TakesTheLargestBitRateThereCanBe) {
  TemporaryFolder folder;
  PutFile("song.mp3", Mp3Bytes().Frame({.bitRate = 14, .sampleRate = 1}, 1000).Xing(1, 1));
  // 2^28 bytes in one frame at 48 kHz are 2^30 twelfths of a kbit/s; that fits.
  std::filesystem::resize_file("song.mp3", 268435456);
  RepvoltaMP3 mp3;
  mp3.SetFileName("song.mp3");
  EXPECT_EQ(mp3.Info().bitRate, (1 << 30) / 12);
}

}  // namespace
}  // namespace repvolta
