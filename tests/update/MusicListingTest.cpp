#include <algorithm>
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
