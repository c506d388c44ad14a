#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

#include "editing/FindMusic.h"

#include "support/TemporaryFolder.h"
#include "support/UnreadableFile.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class MusicFinding : public testing::Test {
 protected:
  std::string Put(const std::string& name) {
    PutFile(name, "");
    return folder.Path() + name;
  }

  std::string MakeFolder(const std::string& name) {
    fs::create_directories(name);
    return folder.Path() + name;
  }

  TemporaryFolder folder;
};

TEST_F(MusicFinding, TakesSongsInNameOrderWithoutRegardToCase) {
  const std::string c = Put("c.mp3");
  const std::string b = Put("B.MP3");
  const std::string a = Put("a.Mp3");
  EXPECT_EQ(FindMusic({c, b, a}), (FoundMusic{.songs = {a, b, c}, .noMusic = {}, .failures = {}}));
}

TEST_F(MusicFinding, TakesAllSongsBelowAFolderAlbumByAlbum) {
  const std::vector<std::string> songs = {Put("music/Album/1.mp3"), Put("music/Album/2.mp3"),
                                          Put("music/Album/cd/3.mp3"), Put("music/Album 2/1.mp3"),
                                          Put("music/best.mp3")};
  EXPECT_EQ(FindMusic({folder.Path() + "music"}).songs, songs);
}

TEST_F(MusicFinding, TakesAFolderWithASeparatorAtItsEnd) {
  const std::string song = Put("music/a.mp3");
  EXPECT_THAT(FindMusic({folder.Path() + "music/"}).songs, ElementsAre(song));
}

TEST_F(MusicFinding, TakesASongOnceThatWasGivenWithItsFolder) {
  const std::string song = Put("music/a.mp3");
  EXPECT_THAT(FindMusic({song, folder.Path() + "music"}).songs, ElementsAre(song));
}

TEST_F(MusicFinding, TellsGivenFilesThatAreNoMusic) {
  const std::string cover = Put("cover.jpg");
  const std::string mp3 = Put("mp3");
  EXPECT_EQ(FindMusic({mp3, cover}),
            (FoundMusic{.songs = {}, .noMusic = {cover, mp3}, .failures = {}}));
}

TEST_F(MusicFinding, PassesOverWhatElseLiesInAFolder) {
  const std::string song = Put("music/a.mp3");
  Put("music/cover.jpg");
  EXPECT_EQ(FindMusic({folder.Path() + "music"}),
            (FoundMusic{.songs = {song}, .noMusic = {}, .failures = {}}));
}

TEST_F(MusicFinding, TellsAFolderWithoutMusic) {
  const std::string scans = MakeFolder("scans.mp3");
  Put("scans.mp3/cover.jpg");
  EXPECT_EQ(FindMusic({scans}),
            (FoundMusic{.songs = {}, .noMusic = {scans + "/"}, .failures = {}}));
}

TEST_F(MusicFinding, FollowsALinkToAFolderOnlyWhenItIsGiven) {
  Put("elsewhere/a.mp3");
  MakeFolder("music");
  fs::create_directory_symlink("../elsewhere", "music/link");
  EXPECT_THAT(FindMusic({folder.Path() + "music"}).songs, IsEmpty());
  EXPECT_THAT(FindMusic({folder.Path() + "music/link"}).songs,
              ElementsAre(folder.Path() + "music/link/a.mp3"));
}

TEST_F(MusicFinding, TakesLinksToSongs) {
  const std::string song = Put("music/a.mp3");
  fs::create_symlink("a.mp3", "music/b.mp3");
  fs::create_symlink("gone.mp3", "music/dangling.mp3");
  EXPECT_THAT(FindMusic({folder.Path() + "music"}).songs,
              ElementsAre(song, folder.Path() + "music/b.mp3"));
}

TEST_F(MusicFinding, TellsFoldersThatCannotBeRead) {
  const std::string song = Put("music/a.mp3");
  const std::string closed = MakeFolder("music/closed");
  const UnreadableFile unreadable(closed);
  EXPECT_EQ(FindMusic({folder.Path() + "music"}),
            (FoundMusic{.songs = {song},
                        .noMusic = {},
                        .failures = {closed + " could not be read: Permission denied"}}));
}

TEST_F(MusicFinding, TellsAFolderThatCannotBeReadOnlyOnce) {
  const std::string closed = MakeFolder("closed");
  const UnreadableFile unreadable(closed);
  EXPECT_THAT(FindMusic({closed}).noMusic, IsEmpty());
  EXPECT_THAT(FindMusic({closed, closed}).failures,
              ElementsAre(closed + " could not be read: Permission denied"));
}

TEST_F(MusicFinding, TellsWhatCannotBeReachedAndGoesOn) {
  const std::string song = Put("a.mp3");
  const std::string closed = MakeFolder("closed");
  const UnreadableFile unreadable(closed);
  const FoundMusic found = FindMusic({closed + "/b.mp3", song});
  EXPECT_THAT(found.songs, ElementsAre(song));
  EXPECT_THAT(found.failures, ElementsAre(testing::StartsWith(closed + "/b.mp3 ")));
}

TEST_F(MusicFinding, CallsBackForEachFolder) {
  MakeFolder("music/a/b");
  int calls = 0;
  FindMusic({folder.Path() + "music"}, [&] { ++calls; });
  EXPECT_EQ(calls, 3);
  EXPECT_THROW(FindMusic({folder.Path() + "music"}, [] { throw std::runtime_error("stopped"); }),
               std::runtime_error);
}

TEST(NameOrder, IgnoresCaseAlsoBeyondAscii) {
  EXPECT_THAT(InNameOrder({"/ö", "/Z", "/Ö2", "/a"}), ElementsAre("/a", "/Z", "/ö", "/Ö2"));
}

TEST(NameOrder, IsTheSameWhateverCameFirst) {
  EXPECT_EQ(InNameOrder({"/a", "/A"}), InNameOrder({"/A", "/a"}));
}

}  // namespace
}  // namespace repvolta
