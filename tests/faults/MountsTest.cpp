#include <filesystem>
#include <gmock/gmock.h>

#include "app/Settings.h"

#include "faults/FaultWorld.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

/// A folder has two names, because it is mounted twice.
class Mounts : public FaultWorld {
 protected:
  Mounts() { Reset(); }

  void SetMusicPath(const std::string& path) {
    state.Settings.MusicPath = Full(path);
    SaveSettings(state);
    fs::current_path(folder.Path());
  }

  /// Updates while `source` is also mounted at `target`.
  static ProgramRun UpdateMounted(const std::string& source, const std::string& target) {
    return RunWithMounts("mount --bind " + source + " " + target,
                         {"program/repvolta-update", "Monday"});
  }

  /// Everything that was in the folder is unchanged; files may have been added.
  static void ExpectOnlyAdded(const Entries& before, const std::string& root) {
    const Entries now = Look(root);
    for (const auto& [path, entry] : before) {
      EXPECT_TRUE(now.contains(path) && now.at(path) == entry) << path << " is not as it was";
    }
  }
};

TEST_F(Mounts, InTheFolderAreNeitherEmptiedNorGivenOtherRights) {
  fs::create_directory("player/Monday/photos");
  fs::permissions("precious", fs::perms::owner_read | fs::perms::owner_exec);
  const Entries before = Look(".");

  const ProgramRun run = UpdateMounted("precious", "player/Monday/photos");

  EXPECT_TRUE(Look(".").at("precious") == before.at("precious"));
  EXPECT_EQ(GetTextFile("precious/diary.txt"), "mine");
  EXPECT_THAT(Lines(run.output),
              Contains("ERROR: " + Full("player/Monday/photos could not be deleted: Another file "
                                        "system is mounted there")));
  EXPECT_FALSE(fs::exists("player/Monday/deep"));
  EXPECT_TRUE(fs::is_regular_file("player/Monday/RV002-drawn.mp3"));
}

TEST_F(Mounts, InPlaceOfTheFolderOnlyGainFiles) {
  PutFile("music/RV002-drawn.mp3", "not an update's");
  const Entries before = Look("music");

  const ProgramRun run = UpdateMounted("music", "player/Monday");

  ExpectOnlyAdded(before, "music");
  EXPECT_THAT(Lines(run.output), Contains("ERROR: " + Full("player/Monday is not deleted: another "
                                                           "file system is mounted there")));
  EXPECT_EQ(run.status, 1);
}

TEST_F(Mounts, OfAFolderToKeepKeepItUnderItsOtherName) {
  SetMusicPath("music/Monday");
  PutFile("music/Monday/notes.txt", "mine");
  const Entries before = Look("music");

  const ProgramRun run = UpdateMounted("music", "player");

  ExpectOnlyAdded(before, "music");
  EXPECT_THAT(run.output, HasSubstr("is not deleted: " + Full("music/Monday lies there")));
}

TEST_F(Mounts, OfTheWayToAFolderToKeepKeepIt) {
  SetMusicPath("music/Monday/by year");
  PutFile("music/Monday/notes.txt", "mine");
  const Entries before = Look("music");

  const ProgramRun run = UpdateMounted("music", "player");

  ExpectOnlyAdded(before, "music");
  EXPECT_THAT(run.output, HasSubstr("is not deleted: " + Full("music/Monday/by year lies there")));
}

TEST_F(Mounts, OfAPartOfTheFolderKeepTheWhole) {
  SetMusicPath("archive");
  fs::create_directory("archive");
  const Entries before = Look("player/Monday");

  const ProgramRun run = UpdateMounted("player/Monday/deep", "archive");

  ExpectOnlyAdded(before, "player/Monday");
  EXPECT_THAT(run.output, HasSubstr("is not deleted: " + Full("archive lies there")));
}

TEST_F(Mounts, OfSongsKeepThemUnderTheirOtherName) {
  PutFile("music/Monday/listed.mp3", "mine");
  PutFile("program/musiclist.txt", Full("music/Monday/listed.mp3\n"));
  const Entries before = Look("music");

  const ProgramRun run = UpdateMounted("music", "player");

  ExpectOnlyAdded(before, "music");
  EXPECT_THAT(run.output, HasSubstr("is not deleted: " + Full("music/Monday/listed.mp3 lies")));
}

TEST_F(Mounts, BesideTheFolderKeepNothing) {
  fs::create_directory("music/Tuesday");
  const ProgramRun run = UpdateMounted("music/Tuesday", "precious");
  EXPECT_EQ(run.status, 0) << run.output;
  EXPECT_THAT(run.output, Not(HasSubstr("ERROR")));
}

/// The player has a disk of its own, mounted at "disk".
class PlayerMount : public FaultWorld {
 protected:
  PlayerMount() {
    fs::create_directories("disk/player");
    state.Settings.OutputPath = Full("disk/player");
    SaveSettings(state);
    fs::current_path(folder.Path());
    Reset();
  }

  /// Runs shell lines in one name space in which they may mount.
  static ProgramRun Run(const std::string& lines) {
    return RunWithMounts("true", {"/bin/sh", "-ec", lines});
  }

  static constexpr const char* kMount = "mount -t tmpfs tmpfs disk; mkdir disk/player\n";
  static constexpr const char* kUpdate =
      "program/repvolta-update Monday > log 2>&1 && echo done || echo failed $?\n";
};

TEST_F(PlayerMount, IsRememberedAndMissedWhenItIsGone) {
  const ProgramRun run = Run(std::string(kMount) + kUpdate + "umount disk\n" +
                             "cp program/workouts/Monday.RPV before\n" + kUpdate);

  EXPECT_EQ(run.output, "done\nfailed 2\n");
  EXPECT_EQ(GetTextFile("program/options.conf"), "player-mount-point = " + Full("disk\n"));
  EXPECT_EQ(GetTextFile("log"), "repvolta-update: The player is not mounted at " + Full("disk") +
                                    ", so " + Full("disk/player") + " lies on the disk below it\n");
  EXPECT_TRUE(fs::is_empty("disk/player"));
  EXPECT_EQ(GetFile("program/workouts/Monday.RPV"), GetFile("before"));
}

TEST_F(PlayerMount, IsThereAgainWhenItIsMountedAgain) {
  const ProgramRun run = Run(std::string(kMount) + kUpdate + "umount disk\n" + kMount + kUpdate);
  EXPECT_EQ(run.output, "done\ndone\n");
}

TEST_F(PlayerMount, IsNotForgottenWhenItIsPulledOutInTheMiddle) {
  PutFile("program/options.conf", "player-mount-point = " + Full("disk\n"));
  PutFile("encoder", "#!/bin/sh\numount -l ../disk\ncp voice/set.wav temp.mp3\n");
  fs::permissions("encoder", fs::perms(0755));
  fs::rename("encoder", "program/lame.exe");

  const ProgramRun run = Run(std::string(kMount) + kUpdate);

  EXPECT_EQ(run.output, "failed 1\n");
  EXPECT_EQ(GetTextFile("program/options.conf"), "player-mount-point = " + Full("disk\n"));
}

}  // namespace
}  // namespace repvolta
