#include <gtest/gtest.h>

#include "sound/WavFormat.h"

namespace repvolta {
namespace {

TEST(WavHeader, HasTheBytesOfTheDocumentedExample) {
  const Bytes expected = {'R',  'I',  'F', 'F', 0x8A, 0,    0,   0, 'W', 'A', 'V', 'E',
                          'f',  'm',  't', ' ', 18,   0,    0,   0, 1,   0,   1,   0,
                          0x80, 0x3E, 0,   0,   0,    0x7D, 0,   0, 2,   0,   16,  0,
                          0,    0,    'd', 'a', 't',  'a',  100, 0, 0,   0};
  EXPECT_EQ(WavHeader({16000, 16, 1}, 100), expected);
}

TEST(WavHeader, CountsTheBytesOfAllChannels) {
  const Bytes header = WavHeader({44100, 8, 2}, 0);
  EXPECT_EQ(header.size(), kWavHeaderSize);
  EXPECT_EQ(LoadLittleEndian<std::uint16_t>(std::span(header).subspan(kBlockAlignOffset)), 2);
  EXPECT_EQ(LoadLittleEndian<std::uint32_t>(std::span(header).subspan(kByteRateOffset)), 88200U);
}

}  // namespace
}  // namespace repvolta
