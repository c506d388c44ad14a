#include <filesystem>
#include <gmock/gmock.h>

#include "faults/FaultWorld.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

/// The encoder is a script that disturbs the player in the middle of the update.
class PlayerGone : public FaultWorld {
 protected:
  PlayerGone() {
    LearnWhatIsRight();
    Reset();
  }

  void PutEncoder(const std::string& script) {
    PutFile("program/encoder", "#!/bin/sh\n" + script + "\ncp voice/set.wav temp.mp3\n");
    fs::permissions("program/encoder", fs::perms(0755));
    fs::rename("program/lame.exe", "kept.exe");
    fs::rename("program/encoder", "program/lame.exe");
  }

  /// Restores the encoder first, so that the remaining files can be compared.
  void ExpectToldAndNothingLost(const ProgramRun& run) {
    fs::rename("kept.exe", "program/lame.exe");
    EXPECT_EQ(run.status, 1) << run.output << run.errors;
    EXPECT_THAT(run.output, HasSubstr("ERROR: "));
    EXPECT_EQ(LastLine(run.output), "UPDATE COMPLETE.");
    ExpectNothingLost();
    ExpectNoTemporaryFiles();
  }

  /// Updates with the player as a separate file system, in a namespace where the encoder may
  /// unmount it.
  static ProgramRun UpdateOnDevice(const std::string& options) {
    return RunOnDevice("player", options, {"program/repvolta-update", "Monday"});
  }
};

TEST_F(PlayerGone, RemovedInTheMiddleIsToldAndNotMadeAgain) {
  PutEncoder("rm -rf ../player");
  ExpectToldAndNothingLost(Update());
  EXPECT_FALSE(fs::exists("player"));
}

TEST_F(PlayerGone, ReplacedByALinkIsNotFollowedToTheUsersFiles) {
  PutEncoder("rm -rf ../player/Monday; ln -s ../music ../player/Monday");
  const Entries before = Look("music");
  const ProgramRun run = Update();
  fs::rename("kept.exe", "program/lame.exe");
  EXPECT_TRUE(Look("music") == before);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(LastLine(run.output), "UPDATE COMPLETE.");
}

TEST_F(PlayerGone, ReadOnlyInTheMiddleIsTold) {
  PutEncoder("mount -o remount,ro ../player");
  ExpectToldAndNothingLost(UpdateOnDevice("size=1m"));
}

TEST_F(PlayerGone, FullInTheMiddleIsTold) {
  PutEncoder("head -c 2000000 /dev/zero > ../player/full 2>&1");
  ExpectToldAndNothingLost(UpdateOnDevice("size=1m"));
}

TEST_F(PlayerGone, WithoutRoomForNamesIsTold) {
  PutEncoder(":");
  ExpectToldAndNothingLost(UpdateOnDevice("size=1m,nr_inodes=3"));
}

TEST_F(PlayerGone, UnmountedInTheMiddleIsToldAndNothingIsWrittenBelow) {
  PutEncoder("umount -l ../player");
  fs::remove_all("player");
  fs::create_directory("player");
  ExpectToldAndNothingLost(UpdateOnDevice("size=1m"));
  EXPECT_TRUE(fs::is_empty("player"));
}

}  // namespace
}  // namespace repvolta
