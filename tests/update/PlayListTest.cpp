#include <filesystem>
#include <gtest/gtest.h>
#include <stdexcept>

#include "base/FileError.h"
#include "update/PlayList.h"

#include "support/FailingClose.h"
#include "support/FullDisk.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

TEST(AddToPlaylistFile, EndsEachLineWithCarriageReturnAndLineFeed) {
  TemporaryFolder folder;
  AddToPlaylistFile("/player/Monday/RV001-Instructions.mp3", "Monday.M3U");
  AddToPlaylistFile("/player/Monday/RV002-Sòng \xE9.mp3", "Monday.M3U");
  EXPECT_EQ(GetTextFile("Monday.M3U"),
            "/player/Monday/RV001-Instructions.mp3\r\n/player/Monday/RV002-Sòng \xE9.mp3\r\n");
}

TEST(AddToPlaylistFile, RefusesAPathThatWouldBeTwoLines) {
  TemporaryFolder folder;
  EXPECT_THROW(AddToPlaylistFile("/a\nb.mp3", "Monday.M3U"), std::invalid_argument);
  EXPECT_THROW(AddToPlaylistFile("/a\rb.mp3", "Monday.M3U"), std::invalid_argument);
  EXPECT_FALSE(std::filesystem::exists("Monday.M3U"));
}

TEST(AddToPlaylistFile, WritesThroughNoLink) {
  TemporaryFolder folder;
  PutFile("precious", "old");
  std::filesystem::create_symlink("precious", "Monday.M3U");
  EXPECT_THROW(AddToPlaylistFile("/a.mp3", "Monday.M3U"), FileError);
  EXPECT_EQ(GetTextFile("precious"), "old");
}

TEST(AddToPlaylistFile, FailsWhereTheCloseCallsTheLineUnwritten) {
  TemporaryFolder folder;
  const FailingClose unwritten("Monday.M3U");
  EXPECT_THROW(AddToPlaylistFile("/a.mp3", "Monday.M3U"), FileError);
}

TEST(AddToPlaylistFile, LeavesNoHalfLineOnAFullPlayer) {
  TemporaryFolder folder;
  AddToPlaylistFile("/player/first.mp3", "Monday.M3U");
  {
    const FullDisk full(25);
    EXPECT_THROW(AddToPlaylistFile("/player/second.mp3", "Monday.M3U"), FileError);
  }
  AddToPlaylistFile("/player/third.mp3", "Monday.M3U");
  EXPECT_EQ(GetTextFile("Monday.M3U"), "/player/first.mp3\r\n/player/third.mp3\r\n");
}

TEST(AddToPlaylistFile, FailsWhereThereIsNoFolder) {
  TemporaryFolder folder;
  EXPECT_THROW(AddToPlaylistFile("/a.mp3", "gone/Monday.M3U"), FileError);
}

}  // namespace
}  // namespace repvolta
