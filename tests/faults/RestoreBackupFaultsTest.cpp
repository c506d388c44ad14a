#include <cstdio>
#include <filesystem>
#include <gmock/gmock.h>
#include <sys/stat.h>

#include "app/RecordFormat.h"
#include "backup/WriteBackup.h"
#include "keeping/PendingRestore.h"

#include "faults/OldOrNewFaults.h"
#include "support/ClipBytes.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

constexpr const char* kOwn[] = {"settings.dat", "workouts", "voice"};

/// Restoring a backup that differs in the settings, a workout, a version and a clip from what is
/// there. The clip and the folder of the version are new.
class BackupRestoreFaults : public OldOrNewFaults {
 protected:
  BackupRestoreFaults() : OldOrNewFaults("restore-backup") {
    fs::create_directory("../before");
    for (const char* name : kOwn)
      fs::copy(name, Full("before/") + name, fs::copy_options::recursive);
    MakeBackup();
    LearnOldAndNew();
  }

  void Reset() override {
    for (const char* name : {"versions", "backups", "restore.pending"}) fs::remove_all(name);
    for (const char* name : kOwn) {
      fs::remove_all(name);
      fs::copy(std::string("../before/") + name, name, fs::copy_options::recursive);
    }
  }

  /// Without the backups and versions that come beside.
  Files Own() const override {
    Files files;
    for (const char* name : {"settings.dat", "workouts", "voice", "versions/Tuesday"}) {
      if (fs::is_regular_file(name)) files[name] = GetTextFile(name);
      if (!fs::is_directory(name)) continue;
      for (const auto& [path, entry] : Look(name)) {
        if (S_ISREG(entry.mode)) files[std::string(name) + "/" + path] = entry.content;
      }
    }
    return files;
  }

 private:
  void MakeBackup() {
    state.Settings.DefaultExerciseTime = 9;
    PutFile("settings.dat", EncodeSettings(state.Settings));
    state.Workout[0].ExerciseName = "Restored";
    PutFile("workouts/Monday.RPV", EncodeWorkout(state.Workout));
    PutFile("voice/exercise/Hop.WAV", ClipBytes(Bytes(40, 'h')));
    PutFile("versions/Tuesday/2026-11-22 05.32.06 before update.RPV", "version");
    WriteBackup("../b.zip", OriginHere(Full("program/"), 40000));
  }
};

TEST_F(BackupRestoreFaults, OfOneCallLeaveTheOldOrTheNewState) {
  const int distance = PointStep(19);
  const int points = FailEveryCall(distance);
  std::printf("[  POINTS  ] restoring: %d calls failed, one at a time\n", points);
  EXPECT_GE(points * distance, 300);
}

TEST_F(BackupRestoreFaults, OfADecidingCallLeaveTheOldOrTheNewState) {
  const int points = FailDecidingCalls();
  std::printf("[  POINTS  ] deciding a restore: %d calls failed, one at a time\n", points);
  EXPECT_GE(points * PointStep(1), 15);
}

TEST_F(BackupRestoreFaults, OfAKillLeaveTheOldOrTheNewState) {
  const int points = KillAmid(PointStep(61));
  std::printf("[  POINTS  ] restoring: killed before %d different calls\n", points);
  EXPECT_GE(points * PointStep(1), 25);
}

/// A restore of which one file is in place and the other, "Tuesday", is not.
class HalfRestore : public FaultWorld {
 protected:
  HalfRestore() {
    RestoreStage stage("program/");
    stage.Add("settings.dat", GetFile("program/settings.dat"));
    stage.Add("workouts/Tuesday.RPV", AsBytes("restored"));
    stage.Commit();
    fs::rename("program/restore.pending/files/settings.dat", "program/settings.dat");
  }
};

TEST_F(HalfRestore, IsFinishedByTheNextUpdate) {
  EXPECT_EQ(Update().status, 0);
  EXPECT_EQ(GetTextFile("program/workouts/Tuesday.RPV"), "restored");
  EXPECT_FALSE(fs::exists("program/restore.pending"));
}

TEST_F(HalfRestore, IsNotReadByADryRun) {
  const Entries before = Look(".");
  const ProgramRun run = Update({"--dry-run"});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(
      run.errors,
      HasSubstr("repvolta-update: A restored backup or a changed voice is half in place in "));
  EXPECT_TRUE(Look(".") == before);
}

TEST_F(HalfRestore, IsNotReadWhenItCannotBeFinished) {
  fs::remove("program/workouts/Tuesday.RPV");
  PutFile("program/workouts/Tuesday.RPV/in the way", "");
  const ProgramRun run = Update();
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.errors, HasSubstr("program/ is half changed: "));
  EXPECT_TRUE(fs::is_empty("player"));
  EXPECT_EQ(GetFile("program/workouts/Monday.RPV"), oldWorkout);
}

}  // namespace
}  // namespace repvolta
