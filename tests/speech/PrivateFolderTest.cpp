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

/// The test has its own folder for temporary files.
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

/// The leftover of a program that was killed while it spoke.
constexpr const char* kLeft = "repvolta-speech-kI11ed";

void LeaveFolder(const std::string& name) {
  for (const char* file : {"/text", "/.text.new", "/sound.wav"}) PutFile(name + file, "Squat");
  fs::permissions(name, fs::perms::owner_all);
}

TEST_F(PrivateFolders, OfKilledProgramsAreDeleted) {
  LeaveFolder(kLeft);
  const PrivateFolder made;
  EXPECT_FALSE(fs::exists(kLeft));
}

TEST_F(PrivateFolders, AreNotTakenForThoseWithALikeName) {
  const std::string names[] = {"repvolta-speech-takes-of-may", "repvolta-speech-", "speech-kI11ed",
                               "repvolta-speech-of-may", "repvolta-speech-kI11e"};
  for (const std::string& name : names) LeaveFolder(name);
  {
    const PrivateFolder made;
  }
  for (const std::string& name : names) EXPECT_EQ(GetTextFile(name + "/text"), "Squat");
}

TEST_F(PrivateFolders, WithSomethingElseInThemAreLeft) {
  LeaveFolder(kLeft);
  PutFile(std::string(kLeft) + "/recording.wav", "mine");
  {
    const PrivateFolder made;
  }
  EXPECT_EQ(GetTextFile(std::string(kLeft) + "/recording.wav"), "mine");
}

TEST_F(PrivateFolders, WithAFolderInThemAreLeft) {
  fs::create_directories(std::string(kLeft) + "/sound.wav");
  fs::permissions(kLeft, fs::perms::owner_all);
  {
    const PrivateFolder made;
  }
  EXPECT_TRUE(fs::exists(kLeft));
}

TEST_F(PrivateFolders, ThatOthersMayEnterAreLeft) {
  LeaveFolder(kLeft);
  fs::permissions(kLeft, fs::perms(0750));
  {
    const PrivateFolder made;
  }
  EXPECT_TRUE(fs::exists(kLeft));
}

TEST_F(PrivateFolders, LeaveNothingOpen) {
  const auto opened = [] {
    return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
  };
  const auto before = opened();
  LeaveFolder(kLeft);
  {
    const PrivateFolder made;
  }
  EXPECT_EQ(opened(), before);
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
  {
    const PrivateFolder made;
  }
  EXPECT_EQ(GetTextFile("precious/diary.txt"), "mine");
  EXPECT_TRUE(fs::is_symlink("repvolta-speech-link"));
  EXPECT_TRUE(fs::exists("repvolta-speech-file"));
  EXPECT_TRUE(fs::exists("repvolta-other/file"));
}

TEST_F(PrivateFolders, OfOtherUsersAreLeft) {
  LeaveFolder("repvolta-speech-theirs");
  // Only the superuser can give a folder away; for other users it stays their own.
  const bool isGiven = chown("repvolta-speech-theirs", 12345, 12345) == 0;
  {
    const PrivateFolder made;
  }
  EXPECT_EQ(fs::exists("repvolta-speech-theirs"), isGiven);
}

TEST_F(PrivateFolders, ThatCannotBeMadeAreToldOf) {
  setenv("TMPDIR", "/proc", 1);
  EXPECT_THROW(PrivateFolder(), FileError);
}

}  // namespace
}  // namespace repvolta
