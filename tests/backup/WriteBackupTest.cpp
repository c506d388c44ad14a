#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/BroughtFiles.h"
#include "backup/WriteBackup.h"
#include "base/Days.h"

#include "support/AtFlush.h"
#include "support/AtOpening.h"
#include "support/BackedUp.h"
#include "support/FailureOf.h"
#include "support/FullDisk.h"
#include "support/TemporaryFolder.h"
#include "support/UnreadableFile.h"
#include "support/WavBytes.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Key;
using testing::UnorderedElementsAre;

constexpr const char* kTarget = "out/backup.zip";
constexpr const char* kVersion = "versions/Monday/2026-11-22 05.32.06 before update.RPV";

std::string Clip(int sample) { return AsText(WavBytes().Format(1, 16000, 16).Samples16({sample})); }

/// A program directory, which is current, with one file of each kind.
class WriteBackupTest : public testing::Test {
 protected:
  WriteBackupTest() {
    fs::create_directory("out");
    for (const auto& [path, content] : own_) PutFile(path, content);
  }

  BackupResult Write(const BackupWatch& watch = {}) {
    return WriteBackup(kTarget, OriginHere("/home/kim/program/", DateOf(2026, 11, 22) + 0.5),
                       watch);
  }

  std::string FailureOfWriting() {
    return FailureOf([&] { Write(); });
  }

  /// Files whose names begin with a point, too.
  static std::vector<std::string> Left() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator("out")) {
      names.push_back(entry.path().filename());
    }
    return names;
  }

  TemporaryFolder folder_;
  const std::map<std::string, std::string> own_ = {{"settings.dat", std::string(1320, 's')},
                                                   {"options.conf", "a = 1\n"},
                                                   {"musiclist.txt", "/m/a.mp3\n"},
                                                   {"workouts/Läufe.RPV", std::string("w\0", 2)},
                                                   {kVersion, "old"},
                                                   {"voice/sets.wav", Clip(1)},
                                                   {"voice/exercise/Squat.WAV", Clip(2)},
                                                   {"exercise/Mine.lst", "Hop\n"}};
};

TEST_F(WriteBackupTest, HoldsEachFileByteForByte) {
  Write();
  EXPECT_EQ(FilesIn(kTarget), own_);
  EXPECT_THAT(Left(), ElementsAre("backup.zip"));
}

TEST_F(WriteBackupTest, CountsWhatItHolds) {
  const BackupResult result = Write();
  EXPECT_EQ(result.counts.size(), 8U);
  EXPECT_EQ(result.counts.at(BackupKind::kWorkout), 1);
  EXPECT_THAT(result.leftOut, IsEmpty());
  EXPECT_EQ(result.weakness, "");
}

TEST_F(WriteBackupTest, SaysWhereItWasMade) {
  Write();
  const BackupOrigin origin = BackupReader(kTarget).Origin();
  EXPECT_EQ(origin.programDirectory, "/home/kim/program/");
  EXPECT_EQ(origin.made, "2026-11-22 12.00.00");
  EXPECT_EQ(origin.home, std::getenv("HOME"));
  EXPECT_NE(origin.version, "");
}

TEST_F(WriteBackupTest, KeepsTheTimesOfTheFiles) {
  using std::chrono::seconds;
  fs::last_write_time("settings.dat", fs::file_time_type::clock::now() - std::chrono::hours(1000));
  const auto time = std::chrono::file_clock::to_sys(fs::last_write_time("settings.dat"));
  Write();
  EXPECT_EQ(BackupReader(kTarget).Entries().at(0).time,
            std::chrono::floor<seconds>(time).time_since_epoch().count());
}

TEST_F(WriteBackupTest, LeavesOutWhatTheProgramBrought) {
  PutFile("voice/brought.wav", Clip(3));
  PutFile("voice/changed.wav", Clip(4));
  const auto line = [](const std::string& path, const std::string& content) {
    return ChecksumOf(AsBytes(content)) + "  " + path + "\n";
  };
  PutFile("brought.sha256", line("voice/brought.wav", Clip(3)) +
                                line("voice/changed.wav", Clip(5)) +
                                line("exercise/Mine.lst", "Hop\n") + "odd\n");
  Write();
  EXPECT_THAT(
      FilesIn(kTarget),
      UnorderedElementsAre(Key("settings.dat"), Key("options.conf"), Key("musiclist.txt"),
                           Key("workouts/Läufe.RPV"), Key(kVersion), Key("voice/changed.wav"),
                           Key("voice/sets.wav"), Key("voice/exercise/Squat.WAV")));
}

TEST_F(WriteBackupTest, LeavesOutOtherFilesWithoutAWord) {
  for (const char* path : {"window.ini", "lame.exe", "update.lock", "workouts/notes.txt",
                           "versions/Monday/next", "versions/Monday/mine.RPV", "voice/README"}) {
    PutFile(path, "x");
  }
  EXPECT_THAT(Write().leftOut, IsEmpty());
  EXPECT_EQ(FilesIn(kTarget), own_);
}

TEST_F(WriteBackupTest, NamesOwnFilesThatItCannotHold) {
  PutFile("voice/broken.wav", "no sound");
  PutFile("workouts/M\xFCnchen.RPV", "x");
  PutFile("workouts/a\\b.RPV", "x");
  PutFile("workouts/LÄUFE.RPV", "x");
  PutFile("workouts/large.RPV", std::string(LargestInBackup(BackupKind::kWorkout) + 1, 'x'));
  EXPECT_THAT(Write().leftOut,
              UnorderedElementsAre("workouts/M\xFCnchen.RPV: No backup can have its name",
                                   "workouts/a\\b.RPV: No backup can have its name",
                                   "workouts/Läufe.RPV: Its name differs only in case from that of "
                                   "another file",
                                   "workouts/large.RPV: It is too large",
                                   "voice/broken.wav: It is no WAV file"));
}

TEST_F(WriteBackupTest, WritesAccentsInOneWay) {
  PutFile("workouts/Cafe\u0301.RPV", "x");
  Write();
  EXPECT_THAT(FilesIn(kTarget), testing::Contains(testing::Pair("workouts/Caf\u00e9.RPV", "x")));
}

TEST_F(WriteBackupTest, HoldsNothingWhereNothingIs) {
  for (const auto& [path, content] : own_) fs::remove(path);
  EXPECT_THAT(Write().counts, IsEmpty());
  EXPECT_THAT(FilesIn(kTarget), IsEmpty());
}

TEST_F(WriteBackupTest, ReplacesAnOlderBackup) {
  PutFile(kTarget, "old");
  Write();
  EXPECT_EQ(FilesIn(kTarget), own_);
}

TEST_F(WriteBackupTest, TellsHowFarItIs) {
  std::vector<std::size_t> done;
  std::size_t all = 0;
  Write([&](std::size_t now, std::size_t whole) {
    done.push_back(now);
    all = whole;
  });
  EXPECT_TRUE(std::ranges::is_sorted(done));
  EXPECT_EQ(done.back(), all);
  EXPECT_GT(done.size(), own_.size());
}

TEST_F(WriteBackupTest, LeavesTheOldBackupWhenItIsStopped) {
  PutFile(kTarget, "old");
  for (const std::size_t end : {1U, 8U, 9U, 16U}) {
    EXPECT_THROW(Write([&](std::size_t done, std::size_t /*all*/) {
                   if (done >= end) throw 7;
                 }),
                 int);
    EXPECT_EQ(GetTextFile(kTarget), "old");
    EXPECT_THAT(Left(), ElementsAre("backup.zip"));
  }
}

TEST_F(WriteBackupTest, RefusesWhatTheDiskDidNotKeep) {
  PutFile(kTarget, "old");
  const AtFlush spoil([] {
    std::string written = GetTextFile("out/.backup.zip.new");
    written.at(written.find("RIFF")) = '!';
    PutFile("out/.backup.zip.new", written);
  });
  EXPECT_THAT(FailureOfWriting(), HasSubstr("out/backup.zip could not be written: Read again, it "
                                            "is no backup. It is damaged"));
  EXPECT_EQ(GetTextFile(kTarget), "old");
  EXPECT_THAT(Left(), ElementsAre("backup.zip"));
}

TEST_F(WriteBackupTest, RefusesAnotherBackupInItsPlace) {
  Write();
  const std::string other = GetTextFile(kTarget);
  PutFile("workouts/New.RPV", "x");
  const AtFlush spoil([&] { PutFile("out/.backup.zip.new", other); });
  EXPECT_THAT(FailureOfWriting(), HasSubstr("It does not hold what was written"));
}

TEST_F(WriteBackupTest, LeavesTheOldBackupWhenTheDiskIsFull) {
  PutFile(kTarget, "old");
  std::string failure;
  {
    const FullDisk disk(1000);
    failure = FailureOfWriting();
  }
  EXPECT_EQ(failure, "out/backup.zip could not be written: File too large");
  EXPECT_EQ(GetTextFile(kTarget), "old");
  EXPECT_THAT(Left(), ElementsAre("backup.zip"));
}

TEST_F(WriteBackupTest, RefusesToLackAFileThatCannotBeRead) {
  const UnreadableFile secret(kVersion);
  EXPECT_EQ(FailureOfWriting(), std::string(kVersion) + " could not be read: Permission denied");
  EXPECT_THAT(Left(), IsEmpty());
}

TEST_F(WriteBackupTest, RefusesToLackAFolderThatCannotBeRead) {
  const UnreadableFile secret("versions/Monday");
  EXPECT_THAT(FailureOfWriting(), HasSubstr("versions/Monday"));
  EXPECT_THAT(Left(), IsEmpty());
}

TEST_F(WriteBackupTest, NeedsAFolderThatIsThere) {
  EXPECT_EQ(FailureOf([] { WriteBackup("gone/b.zip", {}); }),
            "gone/b.zip could not be written: No such file or directory");
}

TEST_F(WriteBackupTest, BeginsAnewWhenAFileChangesMeanwhile) {
  const AtOpening other(kVersion, [] { PutFile("settings.dat", "new settings"); });
  Write();
  EXPECT_EQ(FilesIn(kTarget).at("settings.dat"), "new settings");
}

TEST_F(WriteBackupTest, BeginsAnewWhenAFileVanishesMeanwhile) {
  const AtOpening other(kVersion, [] {
    fs::rename("workouts/Läufe.RPV", "workouts/Runs.RPV");
    fs::remove(kVersion);
  });
  Write();
  EXPECT_EQ(FilesIn(kTarget).count(kVersion), 0U);
  EXPECT_EQ(FilesIn(kTarget).count("workouts/Läufe.RPV"), 0U);
  EXPECT_EQ(FilesIn(kTarget).count("workouts/Runs.RPV"), 1U);
}

TEST_F(WriteBackupTest, GivesUpWhenTheFilesGoOnChanging) {
  PutFile(kTarget, "old");
  int count = 0;
  EXPECT_EQ(FailureOf([&] {
              Write([&](std::size_t, std::size_t) {
                PutFile("workouts/Other.RPV", std::string(static_cast<std::size_t>(++count), 'x'));
              });
            }),
            "out/backup.zip could not be written: Another program goes on changing your files");
  EXPECT_EQ(GetTextFile(kTarget), "old");
  EXPECT_THAT(Left(), ElementsAre("backup.zip"));
}

TEST_F(WriteBackupTest, HoldsWholeVoicesAndTheNotesOnClips) {
  const std::map<std::string, std::string> files = {{"voices/origins.txt", "# notes"},
                                                    {"voices/level.txt", "-12"},
                                                    {"voices/Kim/300.wav", Clip(5)},
                                                    {"voices/Kim/exercise/Row.WAV", Clip(6)},
                                                    {"voices/.originals/300.wav", Clip(7)}};
  for (const auto& [path, content] : files) PutFile(path, content);
  PutFile("voices/.taken in/300.wav", Clip(8));
  PutFile("voices/songs.txt", "measured");
  const BackupResult result = Write();
  EXPECT_EQ(result.counts.at(BackupKind::kVoiceClip), 2);
  EXPECT_EQ(result.counts.at(BackupKind::kOriginalClip), 1);
  EXPECT_THAT(result.leftOut, IsEmpty());
  std::map<std::string, std::string> all = own_;
  all.insert(files.begin(), files.end());
  EXPECT_EQ(FilesIn(kTarget), all);
}

TEST_F(WriteBackupTest, HasTheNewFormatOnlyForWhatAnOlderProgramDoesNotKnow) {
  Write();
  EXPECT_EQ(BackupReader(kTarget).Origin().format, 1);
  PutFile("voices/origins.txt", "# notes");
  Write();
  EXPECT_EQ(BackupReader(kTarget).Origin().format, 2);
}

TEST_F(WriteBackupTest, FollowsLinksToFiles) {
  PutFile("elsewhere/Run.RPV", "far");
  fs::create_symlink("../elsewhere/Run.RPV", "workouts/Run.RPV");
  fs::create_symlink("nowhere", "workouts/Gone.RPV");
  Write();
  EXPECT_EQ(FilesIn(kTarget).at("workouts/Run.RPV"), "far");
}

}  // namespace
}  // namespace repvolta
