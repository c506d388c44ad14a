#include <filesystem>
#include <gtest/gtest.h>
#include <stdexcept>

#include "base/FileError.h"
#include "player/PlayList.h"

#include "support/FailingClose.h"
#include "support/FullDisk.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

class AddToPlaylistFile : public testing::Test {
 protected:
  AddToPlaylistFile() {
    fs::create_directory("player");
    output.Clear({});
    output.Create();
  }

  static std::string Content() { return GetTextFile("player/Monday/Monday.M3U"); }

  TemporaryFolder folder;
  OutputFolder output{folder.Path() + "player", "Monday"};
  PlayList list{output, "Monday.M3U"};
};

TEST_F(AddToPlaylistFile, EndsEachLineWithCarriageReturnAndLineFeed) {
  list.AddToPlaylistFile("/player/Monday/RV001-Instructions.mp3");
  list.AddToPlaylistFile("/player/Monday/RV002-Sòng \xE9.mp3");
  EXPECT_EQ(Content(),
            "/player/Monday/RV001-Instructions.mp3\r\n/player/Monday/RV002-Sòng \xE9.mp3\r\n");
}

TEST_F(AddToPlaylistFile, LeavesACompleteFileBehindEachLine) {
  list.AddToPlaylistFile("/a.mp3");
  EXPECT_EQ(Content(), "/a.mp3\r\n");
}

TEST_F(AddToPlaylistFile, RefusesAPathThatWouldBeTwoLines) {
  EXPECT_THROW(list.AddToPlaylistFile("/a\nb.mp3"), std::invalid_argument);
  EXPECT_THROW(list.AddToPlaylistFile("/a\rb.mp3"), std::invalid_argument);
  EXPECT_FALSE(fs::exists("player/Monday/Monday.M3U"));
}

TEST_F(AddToPlaylistFile, WritesThroughNoLink) {
  PutFile("precious", "/a.mp3\r\n");
  list.AddToPlaylistFile("/a.mp3");
  fs::remove("player/Monday/Monday.M3U");
  fs::create_symlink(folder.Path() + "precious", "player/Monday/Monday.M3U");
  EXPECT_THROW(list.AddToPlaylistFile("/b.mp3"), FileError);
  EXPECT_EQ(GetTextFile("precious"), "/a.mp3\r\n");
}

TEST_F(AddToPlaylistFile, WritesToNoFileThatHasAnotherName) {
  PutFile("precious", "/a.mp3\r\n");
  list.AddToPlaylistFile("/a.mp3");
  fs::remove("player/Monday/Monday.M3U");
  fs::create_hard_link("precious", "player/Monday/Monday.M3U");
  EXPECT_THROW(list.AddToPlaylistFile("/b.mp3"), FileError);
  EXPECT_EQ(GetTextFile("precious"), "/a.mp3\r\n");
}

TEST_F(AddToPlaylistFile, FailsWhereTheCloseCallsTheLineUnwritten) {
  const FailingClose unwritten("Monday.M3U");
  EXPECT_THROW(list.AddToPlaylistFile("/a.mp3"), FileError);
}

TEST_F(AddToPlaylistFile, LeavesNoHalfLineOnAFullPlayer) {
  list.AddToPlaylistFile("/player/first.mp3");
  {
    const FullDisk full(25);
    EXPECT_THROW(list.AddToPlaylistFile("/player/second.mp3"), FileError);
  }
  list.AddToPlaylistFile("/player/third.mp3");
  EXPECT_EQ(Content(), "/player/first.mp3\r\n/player/third.mp3\r\n");
}

TEST_F(AddToPlaylistFile, FailsWhereThereIsNoFolder) {
  fs::remove("player/Monday");
  EXPECT_THROW(list.AddToPlaylistFile("/a.mp3"), FileError);
}

TEST_F(AddToPlaylistFile, KeepsTheLinesThatADiskDoesNotAppend) {
  list.AddToPlaylistFile("/a.mp3");
  {
    const FailingClose refused("Monday.M3U");
    list.AddToPlaylistFile("/b.mp3");
  }
  list.AddToPlaylistFile("/c.mp3");
  EXPECT_EQ(Content(), "/a.mp3\r\n");

  list.Complete();
  EXPECT_EQ(Content(), "/a.mp3\r\n/b.mp3\r\n/c.mp3\r\n");
}

TEST_F(AddToPlaylistFile, KeepsTheLinesWhileADiskDoesNotShowWhatItHolds) {
  list.AddToPlaylistFile("/a.mp3");
  fs::resize_file("player/Monday/Monday.M3U", 0);
  list.AddToPlaylistFile("/b.mp3");
  list.Complete();
  EXPECT_EQ(Content(), "/a.mp3\r\n/b.mp3\r\n");
}

TEST_F(AddToPlaylistFile, WritesNothingTwiceWhereNoLineWaits) {
  list.AddToPlaylistFile("/a.mp3");
  fs::remove("player/Monday/Monday.M3U");
  list.Complete();
  EXPECT_FALSE(fs::exists("player/Monday/Monday.M3U"));
}

}  // namespace
}  // namespace repvolta
