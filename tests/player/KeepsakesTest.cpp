#include <filesystem>
#include <gtest/gtest.h>

#include "base/FileError.h"
#include "player/Keepsakes.h"

#include "support/TemporaryFolder.h"
#include "support/UnreadableFile.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

TEST(IsNumberedName, AsksForThreeDigitsBetweenItsMarks) {
  for (const char* name : {"RV001-Song.mp3", "RV1000-", "RV123456-x"}) {
    EXPECT_TRUE(IsNumberedName(name)) << name;
  }
  for (const char* name : {"", "RV", "RV01-Song.mp3", "RV001", "RV001 Song.mp3", "rv001-Song.mp3",
                           "RV-001-Song.mp3", "RVxxx-Song.mp3", "01 RV001-Song.mp3"}) {
    EXPECT_FALSE(IsNumberedName(name)) << name;
  }
}

std::optional<std::string> FindKeepsakeIn(const std::string& folder, const Keepsakes& keep) {
  return FindKeepsake(FolderHandle::Open(folder), keep);
}

TEST(FindKeepsake, IsTheFolderItselfOrOneInIt) {
  TemporaryFolder folder;
  PutFile("Monday/music/song.mp3", "");
  for (const char* kept : {"Monday", "Monday/music", "Monday/music/gone"}) {
    EXPECT_EQ(FindKeepsakeIn("Monday", {.folders = {"", "elsewhere", kept}}), kept);
  }
}

TEST(FindKeepsake, IsNoFolderAroundOrBesideIt) {
  TemporaryFolder folder;
  fs::create_directories("player/Monday");
  fs::create_directories("player/Monday music");
  EXPECT_EQ(
      FindKeepsakeIn("player/Monday", {.folders = {"player", "player/Monday music", "player/.."}}),
      std::nullopt);
}

TEST(FindKeepsake, IsTheFirstSongThatLiesThere) {
  TemporaryFolder folder;
  PutFile("Monday/disc 2/lead.mp3", "");
  PutFile("Monday/end.mp3", "");
  PutFile("end.mp3", "");
  EXPECT_EQ(FindKeepsakeIn("Monday", {.songs = {"end.mp3", "Monday/gone.mp3",
                                                "Monday/disc 2/lead.mp3", "Monday/end.mp3"}}),
            "Monday/disc 2/lead.mp3");
}

TEST(FindKeepsake, IsNoSongWithANameThatAnUpdateGives) {
  TemporaryFolder folder;
  PutFile("Monday/RV001-lead.mp3", "");
  PutFile("Monday/cover.jpg", "");
  EXPECT_EQ(FindKeepsakeIn("Monday", {.songs = {"Monday/RV001-lead.mp3"}}), std::nullopt);
}

TEST(FindKeepsake, IsASongOfTheList) {
  TemporaryFolder folder;
  PutFile("Monday/lead.mp3", "");
  PutFile("list", "/gone.mp3\r\n Monday/lead.mp3 \r\n");
  EXPECT_EQ(FindKeepsakeIn("Monday", {.songList = "list"}), "Monday/lead.mp3");
}

TEST(FindKeepsake, IsNotLookedForInAListThatCannotBeReadWhereNoSongCanLie) {
  TemporaryFolder folder;
  PutFile("Monday/Monday.M3U", "");
  PutFile("list", "");
  const UnreadableFile unreadable("list");
  EXPECT_EQ(FindKeepsakeIn("Monday", {.songList = "list"}), std::nullopt);
  PutFile("Monday/lead.mp3", "");
  EXPECT_THROW(FindKeepsakeIn("Monday", {.songList = "list"}), FileError);
}

}  // namespace
}  // namespace repvolta
