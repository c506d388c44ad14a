#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/Options.h"
#include "base/ProgramFiles.h"
#include "player/PlayerDisk.h"

#include "support/TemporaryFolder.h"
#include "support/UnreadableFile.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

/// A file system of the machine that is not that of "/".
constexpr const char* kOtherDisk = "/proc";

class PlayerOnDisk : public testing::Test {
 protected:
  PlayerOnDisk() {
    state.ProgramDirectory = folder.Path();
    fs::create_directory("player");
    state.Settings.OutputPath = Full("player");
  }

  std::string Full(const std::string& path) const { return folder.Path() + path; }

  TemporaryFolder folder;
  ProgramState state;
};

TEST_F(PlayerOnDisk, IsMountedWhereTheDiskBegins) {
  EXPECT_EQ(MountPointOf("/proc"), "/proc");
  EXPECT_EQ(MountPointOf("/proc/self/task/"), "/proc");
  fs::create_directory_symlink("/proc/self", "link");
  EXPECT_EQ(MountPointOf("link"), "/proc");
}

TEST_F(PlayerOnDisk, IsNotMountedOnTheDiskOfTheSystem) { EXPECT_EQ(MountPointOf("/"), ""); }

TEST_F(PlayerOnDisk, IsMountedNowhereWhenItIsNotThere) {
  EXPECT_EQ(MountPointOf(Full("gone")), std::nullopt);
  PutFile("file", "");
  EXPECT_EQ(MountPointOf(Full("file")), std::nullopt);
}

TEST_F(PlayerOnDisk, IsThere) { EXPECT_EQ(WhyPlayerIsMissing(state), ""); }

TEST_F(PlayerOnDisk, IsMissingWithoutItsFolder) {
  fs::remove("player");
  EXPECT_EQ(WhyPlayerIsMissing(state), Full("player is not there"));
  PutFile("player", "a file");
  EXPECT_EQ(WhyPlayerIsMissing(state), Full("player is not there"));
  fs::remove("player");
  fs::create_symlink("gone", "player");
  EXPECT_EQ(WhyPlayerIsMissing(state), Full("player is not there"));
}

TEST_F(PlayerOnDisk, IsMissingWhereItCannotBeReached) {
  fs::create_directories("closed/player");
  state.Settings.OutputPath = Full("closed/player");
  const UnreadableFile closed("closed");
  EXPECT_EQ(WhyPlayerIsMissing(state), Full("closed/player is not there: Permission denied"));
}

TEST_F(PlayerOnDisk, IsMissingWhereNothingIsMountedAnyMore) {
  Put(state.Options, kPlayerMountPoint, Full("player"));
  EXPECT_EQ(WhyPlayerIsMissing(state), "The player is not mounted at " + Full("player") + ", so " +
                                           Full("player") + " lies on the disk below it");
  state.Settings.OutputPath = Full("player/workouts");
  fs::create_directory("player/workouts");
  EXPECT_EQ(WhyPlayerIsMissing(state), "The player is not mounted at " + Full("player") + ", so " +
                                           Full("player/workouts") + " lies on the disk below it");
}

TEST_F(PlayerOnDisk, IsThereWhereAnotherFolderWasChosen) {
  Put(state.Options, kPlayerMountPoint, Full("play"));
  EXPECT_EQ(WhyPlayerIsMissing(state), "");
  Put(state.Options, kPlayerMountPoint, Full("player/deep"));
  EXPECT_EQ(WhyPlayerIsMissing(state), "");
}

TEST_F(PlayerOnDisk, IsThereWhileItsDiskIsMounted) {
  state.Settings.OutputPath = "/proc/self";
  Put(state.Options, kPlayerMountPoint, kOtherDisk);
  EXPECT_EQ(WhyPlayerIsMissing(state), "");
}

TEST_F(PlayerOnDisk, IsRememberedWithItsMountPoint) {
  PlayerDisk("/proc/self").Remember(state);
  EXPECT_EQ(GetTextFile(kOptionsFile), "player-mount-point = /proc\n");
}

TEST_F(PlayerOnDisk, IsRememberedOnlyOnce) {
  PlayerDisk("/proc/self").Remember(state);
  const auto stamp = StampOf(kOptionsFile);
  PlayerDisk("/proc/self").Remember(state);
  EXPECT_EQ(StampOf(kOptionsFile), stamp);
}

TEST_F(PlayerOnDisk, IsForgottenOnTheDiskOfTheSystem) {
  Put(state.Options, kPlayerMountPoint, "/mnt");
  PlayerDisk("/").Remember(state);
  EXPECT_EQ(GetTextFile(kOptionsFile), "");
}

TEST_F(PlayerOnDisk, LeavesNoFileWhereThereIsNothingToRemember) {
  PlayerDisk("/").Remember(state);
  EXPECT_FALSE(fs::exists(kOptionsFile));
}

TEST_F(PlayerOnDisk, IsNotForgottenWhenItIsPulledOut) {
  Put(state.Options, kPlayerMountPoint, "/mnt");
  const PlayerDisk disk(Full("player"));
  fs::remove("player");
  disk.Remember(state);
  const PlayerDisk gone(Full("player"));
  fs::create_directory("player");
  gone.Remember(state);
  EXPECT_EQ(Get(state.Options, kPlayerMountPoint), "/mnt");
}

}  // namespace
}  // namespace repvolta
