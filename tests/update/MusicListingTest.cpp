#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "update/MusicListing.h"

#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> ListedLines() {
  std::vector<std::string> lines;
  std::string line;
  for (const char c : GetTextFile("musiclist.txt")) {
    if (c != '\n') {
      line += c;
      continue;
    }
    lines.push_back(line);
    line.clear();
  }
  EXPECT_EQ(line, "") << "the last line has no end";
  std::sort(lines.begin(), lines.end());
  return lines;
}

TEST(MusicName, EndsInMp3InAnyCase) {
  for (const char* name : {"a.mp3", "a.MP3", "a.Mp3", ".mp3", "a.jpg.mp3"}) {
    EXPECT_TRUE(IsMusicName(name)) << name;
  }
  for (const char* name : {"", "mp3", "a.mp", "a.mp3 ", "a.mp4", "amp3", "a.mp3.jpg"}) {
    EXPECT_FALSE(IsMusicName(name)) << name;
  }
}

TEST(SearchMusic, ReportsTheFoldersThatCannotBeRead) {
  TemporaryFolder folder;
  std::vector<std::pair<std::string, int>> unreadable;
  SearchMusic(folder.Path() + "gone",
              {.takeSong = [](const std::string&) {},
               .takeUnreadable = [&](const std::string& path,
                                     int error) { unreadable.emplace_back(path, error); },
               .whileSearching = {}});
  EXPECT_THAT(unreadable, ElementsAre(std::pair(folder.Path() + "gone", ENOENT)));
}

TEST(CompileMusicList, ListsTheMusicBelowTheFolderByFullPath) {
  TemporaryFolder folder;
  PutFile("music/a.mp3", "");
  PutFile("music/sub/deep er/B.MP3", "");
  PutFile("music/cover.jpg", "");
  PutFile("music/mp3", "");
  fs::create_directory("music/folder.mp3");

  CompileMusicList("music");

  EXPECT_THAT(ListedLines(), ElementsAre(folder.Path() + "music/a.mp3",
                                         folder.Path() + "music/sub/deep er/B.MP3"));
}

TEST(CompileMusicList, ListsAFileThatIsNamedByTheEndingAlone) {
  TemporaryFolder folder;
  PutFile("music/.mp3", "");
  CompileMusicList(folder.Path() + "music");
  EXPECT_THAT(ListedLines(), ElementsAre(folder.Path() + "music/.mp3"));
}

TEST(CompileMusicList, FollowsNoLinksToFolders) {
  TemporaryFolder folder;
  PutFile("music/a.mp3", "");
  fs::create_directory_symlink("..", "music/loop");
  fs::create_symlink("a.mp3", "music/link.mp3");
  fs::create_symlink("gone.mp3", "music/dangling.mp3");

  CompileMusicList(folder.Path() + "music");

  EXPECT_THAT(ListedLines(),
              ElementsAre(folder.Path() + "music/a.mp3", folder.Path() + "music/link.mp3"));
}

TEST(CompileMusicList, LeavesOutPathsThatWouldBeTwoLines) {
  TemporaryFolder folder;
  PutFile("music/a\nb.mp3", "");
  PutFile("music/c\rd/e.mp3", "");
  CompileMusicList("music");
  EXPECT_THAT(ListedLines(), IsEmpty());
}

TEST(CompileMusicList, KeepsTheBytesOfAPath) {
  TemporaryFolder folder;
  PutFile("music/caf\xE9 走.mp3", "");
  CompileMusicList("music");
  EXPECT_THAT(ListedLines(), ElementsAre(folder.Path() + "music/caf\xE9 走.mp3"));
}

TEST(CompileMusicList, IsEmptyWithoutAFolder) {
  TemporaryFolder folder;
  PutFile("musiclist.txt", "old\n");
  CompileMusicList("");
  EXPECT_EQ(GetTextFile("musiclist.txt"), "");
  CompileMusicList("gone");
  EXPECT_EQ(GetTextFile("musiclist.txt"), "");
}

TEST(CompileMusicList, CallsBackForEachFolder) {
  TemporaryFolder folder;
  fs::create_directories("music/a/b");
  int calls = 0;
  CompileMusicList("music", [&] { ++calls; });
  EXPECT_EQ(calls, 3);
}

TEST(CompileMusicList, KeepsTheOldListWhenItIsStopped) {
  TemporaryFolder folder;
  PutFile("music/a.mp3", "");
  PutFile("musiclist.txt", "old\n");
  EXPECT_THROW(CompileMusicList("music", [] { throw std::runtime_error("stopped"); }),
               std::runtime_error);
  EXPECT_EQ(GetTextFile("musiclist.txt"), "old\n");
}

}  // namespace
}  // namespace repvolta
