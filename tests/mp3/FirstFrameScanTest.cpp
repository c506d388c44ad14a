#include <gtest/gtest.h>
#include <random>

#include "mp3/RepvoltaMP3.h"

#include "support/Mp3Bytes.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

constexpr std::size_t kFirstBlock = 4 * 1024;

/// The rule by which the first frame is found, byte by byte: its offset, or -1.
std::ptrdiff_t FirstFrameByteByByte(std::span<const Byte> file) {
  RepvoltaMP3 decoder;
  for (std::size_t offset = 0; offset + 6 < file.size(); ++offset) {
    const auto header = LoadLittleEndian<std::uint32_t>(file.subspan(offset));
    const auto position = static_cast<std::int32_t>(offset + 1);
    if (RepvoltaMP3::IsFrameSync(header) && decoder.DecodeFrameHeader(header, position)) {
      return static_cast<std::ptrdiff_t>(offset);
    }
  }
  return -1;
}

std::ptrdiff_t FirstFrame(std::span<const Byte> file, RepvoltaMP3::EmbeddedTags embedded) {
  PutFile("song.mp3", file);
  RepvoltaMP3 mp3(embedded);
  mp3.SetFileName("song.mp3");
  return mp3.Info().valid ? mp3.Info().headerOffset : -1;
}

void ExpectTheSameFirstFrame(std::span<const Byte> file) {
  const std::ptrdiff_t expected = FirstFrameByteByByte(file);
  EXPECT_EQ(FirstFrame(file, RepvoltaMP3::EmbeddedTags::kIgnored), expected);
  EXPECT_EQ(FirstFrame(file, RepvoltaMP3::EmbeddedTags::kSearched), expected);
}

/// Bytes of which many look like a sync but few like a frame.
Bytes HardBytes(std::mt19937& random, std::size_t size) {
  constexpr Byte kChoices[] = {0xFF, 0xFF, 0xFB, 0xF3, 0xE0, 0x0C, 0xF0, 0x00, 0x1C, 0x90};
  Bytes bytes(size);
  for (Byte& byte : bytes) byte = kChoices[random() % (random() % 4 == 0 ? 10 : 9)];
  return bytes;
}

TEST(FirstFrameScan, AgreesWithTheRuleOnRandomBytes) {
  TemporaryFolder folder;
  std::mt19937 random(1);
  for (int round = 0; round < 200; ++round) {
    Bytes file(random() % 9000);
    for (Byte& byte : file) byte = static_cast<Byte>(random());
    ExpectTheSameFirstFrame(file);
  }
}

TEST(FirstFrameScan, AgreesWithTheRuleOnBytesThatAreAlmostFrames) {
  TemporaryFolder folder;
  std::mt19937 random(2);
  for (std::size_t round = 0; round < 400; ++round) {
    ExpectTheSameFirstFrame(HardBytes(random, round / 4));
  }
}

TEST(FirstFrameScan, AgreesWithTheRuleOnEveryHeader) {
  TemporaryFolder folder;
  // The first candidate of a file is examined separately, so these are not the first. The file is
  // too short for a candidate after them.
  for (int second = 0xDF; second <= 0xFF; ++second) {
    for (int third = 0; third <= 0xFF; ++third) {
      const Bytes header{0xFF, static_cast<Byte>(second), static_cast<Byte>(third), 0};
      ExpectTheSameFirstFrame(Mp3Bytes().Garbage(2).Raw(header).Zeros(3));
    }
  }
}

TEST(FirstFrameScan, AgreesWithTheRuleAcrossTheEndOfEveryBlock) {
  TemporaryFolder folder;
  for (const std::size_t end : {4U, 4U + 16, 4U + 16 + 64, 4U + 16 + 64 + 128}) {
    for (std::size_t before = end * 1024 - 80; before < end * 1024 + 3; ++before) {
      Bytes file(before, 0xFF);
      file.insert(file.end(), {0xFF, 0xFB, 0x90, 0x00, 0, 0, 0, 0, 0});
      EXPECT_EQ(FirstFrame(file, RepvoltaMP3::EmbeddedTags::kIgnored),
                static_cast<std::ptrdiff_t>(before));
    }
  }
}

TEST(FirstFrameScan, FindsAFrameAcrossTheEndOfABlock) {
  TemporaryFolder folder;
  for (std::size_t before = kFirstBlock - 6; before < kFirstBlock + 3; ++before) {
    ExpectTheSameFirstFrame(Mp3Bytes().Garbage(before).Frame());
  }
}

TEST(FirstFrameScan, FindsAFrameAfterManyFalseSyncs) {
  TemporaryFolder folder;
  ExpectTheSameFirstFrame(Mp3Bytes().Raw(Bytes(100000, 0xFF)).Garbage(50000).Frame());
}

TEST(FirstFrameScan, ReadsAFileWithoutAFrameThroughCompletely) {
  TemporaryFolder folder;
  ExpectTheSameFirstFrame(Mp3Bytes().Garbage(700000));
}

TEST(FirstFrameScan, AgreesWithTheRuleWhereverTheFileEnds) {
  TemporaryFolder folder;
  const Bytes file = Mp3Bytes().Garbage(150).Frame({}, 20);
  for (std::size_t size = 0; size <= file.size(); ++size) {
    ExpectTheSameFirstFrame(std::span(file).first(size));
  }
}

}  // namespace
}  // namespace repvolta
