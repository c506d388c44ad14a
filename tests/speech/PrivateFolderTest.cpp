#include <filesystem>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include "base/FileError.h"
#include "speech/PrivateFolder.h"

#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

/// Temporary files lie in a folder of the test's own.
class PrivateFolders : public testing::Test {
 protected:
  PrivateFolders() { setenv("TMPDIR", fs::current_path().c_str(), 1); }
  ~PrivateFolders() override { unsetenv("TMPDIR"); }

  TemporaryFolder folder;
};

TEST_F(PrivateFolders, AreTheUsersAloneAndGoWithAllThatIsInThem) {
  std::string path;
  {
    const PrivateFolder made;
    path = made.Path();
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_all);
    PutFile(path + "deep/file", "x");
  }
  EXPECT_FALSE(fs::exists(path));
}

TEST_F(PrivateFolders, OfKilledProgramsAreDeleted) {
  PutFile("repvolta-speech-killed/text", "Squat");
  const PrivateFolder made;
  EXPECT_FALSE(fs::exists("repvolta-speech-killed"));
}

TEST_F(PrivateFolders, ThatAreInUseStay) {
  const PrivateFolder first;
  const PrivateFolder second;
  EXPECT_TRUE(fs::exists(first.Path()));
  EXPECT_NE(first.Path(), second.Path());
}

TEST_F(PrivateFolders, AreNotTakenForWhatOthersLeft) {
  PutFile("precious/diary.txt", "mine");
  fs::create_directory_symlink("precious", "repvolta-speech-link");
  PutFile("repvolta-speech-file", "x");
  PutFile("repvolta-other/file", "x");
  { const PrivateFolder made; }
  EXPECT_EQ(GetTextFile("precious/diary.txt"), "mine");
  EXPECT_TRUE(fs::is_symlink("repvolta-speech-link"));
  EXPECT_TRUE(fs::exists("repvolta-speech-file"));
  EXPECT_TRUE(fs::exists("repvolta-other/file"));
}

TEST_F(PrivateFolders, OfOtherUsersAreLeft) {
  fs::create_directory("repvolta-speech-theirs");
  // Only the superuser can give a folder away; for others it stays their own.
  const bool isGiven = chown("repvolta-speech-theirs", 12345, 12345) == 0;
  { const PrivateFolder made; }
  EXPECT_EQ(fs::exists("repvolta-speech-theirs"), isGiven);
}

TEST_F(PrivateFolders, ThatCannotBeMadeAreToldOf) {
  setenv("TMPDIR", "/proc", 1);
  EXPECT_THROW(PrivateFolder(), FileError);
}

}  // namespace
}  // namespace repvolta
