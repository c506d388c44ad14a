#include <filesystem>
#include <gtest/gtest.h>

#include "base/FileError.h"
#include "mp3/GetPlayTime.h"

#include "support/Mp3Bytes.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

TEST(GetPlayTime, IsZeroForAPathOfBlanks) {
  TemporaryFolder folder;
  PutFile("   ", Mp3Bytes().Frames(200));
  EXPECT_EQ(GetPlayTime("   "), 0);
  EXPECT_EQ(GetPlayTime(""), 0);
}

TEST(GetPlayTime, IsInWholeSeconds) {
  TemporaryFolder folder;
  PutFile("song.mp3", Mp3Bytes().Frames(200));
  EXPECT_EQ(GetPlayTime("song.mp3"), 5);
}

TEST(GetPlayTime, IsZeroWithoutAFrame) {
  TemporaryFolder folder;
  PutFile("song.mp3", Mp3Bytes().Garbage(5000));
  EXPECT_EQ(GetPlayTime("song.mp3"), 0);
}

TEST(GetPlayTime, RaisesTimesOfMoreThan16Bits) {
  TemporaryFolder folder;
  PutFile("song.mp3", Mp3Bytes().Frame({.bitRate = 1}));
  std::filesystem::resize_file("song.mp3", 32767 * 4000 + 1);
  EXPECT_EQ(GetPlayTime("song.mp3"), 32767);

  std::filesystem::resize_file("song.mp3", 32768 * 4000 + 1);
  EXPECT_THROW(GetPlayTime("song.mp3"), std::overflow_error);
}

TEST(GetPlayTime, RaisesAMissingFile) {
  TemporaryFolder folder;
  EXPECT_THROW(GetPlayTime("gone.mp3"), FileError);
}

}  // namespace
}  // namespace repvolta
