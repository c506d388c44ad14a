#include <cerrno>
#include <filesystem>
#include <gtest/gtest.h>

#include "base/DeleteFolder.h"
#include "base/FileError.h"
#include "base/FolderHandle.h"

#include "support/FailureOf.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

class OpenedFolder : public testing::Test {
 protected:
  OpenedFolder() { fs::create_directories("player/Monday"); }

  /// Another folder takes the path.
  static void Exchange() {
    fs::rename("player/Monday", "player/elsewhere");
    PutFile("player/Monday/Song.mp3", "theirs");
  }

  TemporaryFolder folder;
};

TEST_F(OpenedFolder, IsTheOneOfItsPath) {
  const FolderHandle player = FolderHandle::Open("player");
  EXPECT_EQ(player.Path(), "player/");
  EXPECT_EQ(player.OpenFolder("Monday").Path(), "player/Monday/");
  EXPECT_TRUE(player.IsAtItsPath());
}

TEST_F(OpenedFolder, FollowsALinkOnlyInItsOwnPath) {
  fs::create_directory_symlink("Monday", "player/link");
  EXPECT_TRUE(FolderHandle::Open("player/link").IsOpen());
  EXPECT_FALSE(FolderHandle::Open("player").OpenFolder("link").IsOpen());
}

TEST_F(OpenedFolder, SaysWhyItIsNotOpen) {
  EXPECT_FALSE(FolderHandle::Open("gone").IsOpen());
  EXPECT_EQ(errno, ENOENT);
}

TEST_F(OpenedFolder, StaysTheSameOneWhenAnotherTakesItsPath) {
  const FolderHandle monday = FolderHandle::Open("player").OpenFolder("Monday");
  Exchange();
  File file = monday.CreateFile("Song.mp3");
  file.WriteAt(0, AsBytes("ours"));
  file.CloseWritten();

  EXPECT_EQ(GetTextFile("player/elsewhere/Song.mp3"), "ours");
  EXPECT_EQ(GetTextFile("player/Monday/Song.mp3"), "theirs");
  EXPECT_FALSE(monday.IsAtItsPath());
}

TEST_F(OpenedFolder, IsDeletedAndNotAnotherThatTakesItsPath) {
  PutFile("player/Monday/old/Song.mp3", "old");
  const FolderHandle player = FolderHandle::Open("player");
  const FolderHandle monday = player.OpenFolder("Monday");
  Exchange();
  EXPECT_THROW(DeleteFolder(player, monday), FileError);
  EXPECT_TRUE(fs::is_empty("player/elsewhere"));
  EXPECT_EQ(GetTextFile("player/Monday/Song.mp3"), "theirs");
}

TEST_F(OpenedFolder, CreatesNoFileInPlaceOfAnother) {
  const FolderHandle player = FolderHandle::Open("player");
  fs::create_symlink("nowhere", "player/link");
  EXPECT_EQ(FailureOf([&] { player.CreateFile("Monday"); }),
            "player/Monday could not be created: File exists");
  EXPECT_EQ(FailureOf([&] { player.CreateFile("link"); }),
            "player/link could not be created: File exists");
}

TEST_F(OpenedFolder, OpensFilesAndNothingElse) {
  const FolderHandle player = FolderHandle::Open("player");
  PutFile("precious", "theirs");
  fs::create_symlink(folder.Path() + "precious", "player/link");
  EXPECT_EQ(FailureOf([&] { player.OpenFile("Monday", File::Access::kRead); }),
            "player/Monday could not be read: It is not a file");
  EXPECT_THROW(player.OpenFile("link", File::Access::kReadWrite), FileError);
  EXPECT_THROW(player.OpenFile("gone", File::Access::kRead), FileError);
}

TEST_F(OpenedFolder, SeesLinksThemselves) {
  fs::create_symlink("nowhere", "player/link");
  const FolderHandle player = FolderHandle::Open("player");
  EXPECT_TRUE(S_ISLNK(player.StatusOf("link").value().st_mode));
  EXPECT_FALSE(player.StatusOf("gone").has_value());
  EXPECT_TRUE(S_ISDIR(player.StatusOf("").value().st_mode));
}

TEST_F(OpenedFolder, RemovesLinksAndNotWhatTheyPointTo) {
  PutFile("precious", "theirs");
  fs::create_symlink(folder.Path() + "precious", "player/link");
  const FolderHandle player = FolderHandle::Open("player");
  player.RemoveFile("link");
  player.RemoveFile("gone");
  EXPECT_FALSE(fs::exists(fs::symlink_status("player/link")));
  EXPECT_EQ(GetTextFile("precious"), "theirs");
  EXPECT_THROW(player.RemoveFile("Monday"), FileError);
}

}  // namespace
}  // namespace repvolta
