#include <cstdio>
#include <filesystem>
#include <gmock/gmock.h>
#include <map>
#include <sys/stat.h>

#include "app/RecordFormat.h"
#include "backup/WriteBackup.h"
#include "keeping/PendingRestore.h"

#include "faults/FaultWorld.h"
#include "support/ClipBytes.h"
#include "support/ProgramsBeside.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

/// In turn, so that each call meets several of them.
const std::vector<const char*> kFailures = {"EIO", "ENOSPC", "EACCES"};

constexpr const char* kOwn[] = {"settings.dat", "workouts", "voice"};

constexpr const char* kGroups[] = {"open", "write", "fsync", "rename", "mkdir", "unlink",
                                   "read", "list",  "mode",  "stat",   "close", "lock"};

/// The calls by which a restore is decided and put in place.
constexpr const char* kDecidingGroups[] = {"rename", "mkdir", "unlink"};

/// Restoring a backup that differs in the settings, a workout, a version and a clip from what is
/// there. The clip and the folder of the version are new.
class BackupRestoreFaults : public FaultWorld {
 protected:
  BackupRestoreFaults() {
    fs::create_directory("before");
    fs::current_path(Full("program"));
    for (const char* name : kOwn)
      fs::copy(name, Full("before/") + name, fs::copy_options::recursive);
    MakeBackup();
    Reset();
    old_ = Own();
    EXPECT_EQ(RestoreWith({"any", 1'000'000, "EIO"}).run.status, 0);
    new_ = Own();
    EXPECT_NE(old_, new_);
  }

  FaultyRun RestoreWith(const Fault& fault) {
    return RunWith(fault, ProgramBeside("engine_steps"), {"restore-backup"});
  }

  static int Finish() {
    return RunProgram(ProgramBeside("engine_steps"), {"finish-restore"}).status;
  }

  static void Reset() {
    for (const char* name : {"versions", "backups", "restore.pending"}) fs::remove_all(name);
    for (const char* name : kOwn) {
      fs::remove_all(name);
      fs::copy(std::string("../before/") + name, name, fs::copy_options::recursive);
    }
  }

  /// What must be all old or all new, without the backups and versions that come beside.
  static std::map<std::string, std::string> Own() {
    std::map<std::string, std::string> files;
    for (const char* name : {"settings.dat", "workouts", "voice", "versions/Tuesday"}) {
      if (fs::is_regular_file(name)) files[name] = GetTextFile(name);
      if (!fs::is_directory(name)) continue;
      for (const auto& [path, entry] : Look(name)) {
        if (S_ISREG(entry.mode)) files[std::string(name) + "/" + path] = entry.content;
      }
    }
    return files;
  }

  void ExpectOldOrNew(const ProgramRun& run) {
    const bool wasPending = IsRestorePending("");
    if (!wasPending && run.status != -1) {
      EXPECT_TRUE(Own() == (run.status == 0 ? new_ : old_)) << run.errors;
    }
    EXPECT_EQ(Finish(), 0);
    const auto now = Own();
    EXPECT_TRUE(now == new_ || (now == old_ && !wasPending));
    EXPECT_FALSE(fs::exists("restore.pending"));
  }

  bool TryFault(const Fault& fault) {
    Reset();
    const FaultyRun faulty = RestoreWith(fault);
    SCOPED_TRACE(fault.Text());
    const ProgramRun& run = faulty.run;
    EXPECT_TRUE(run.status == -1 || run.status == 0 ||
                (run.status == 1 && run.errors.starts_with("engine_steps: ")))
        << run.status << run.errors;
    ExpectOldOrNew(run);
    return faulty.hit;
  }

  /// Returns how many calls were tried.
  int TryEvery(const std::string& group, int step, const std::vector<const char*>& failures) {
    std::size_t points = 0;
    for (int number = 1; TryFault({group, number, failures[points % failures.size()]});
         number += step) {
      ++points;
    }
    return static_cast<int>(points);
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

  std::map<std::string, std::string> old_;
  std::map<std::string, std::string> new_;
};

TEST_F(BackupRestoreFaults, OfOneCallLeaveTheOldOrTheNewState) {
  const int step = PointStep(19);
  int points = 0;
  for (const char* group : kGroups) points += TryEvery(group, step, kFailures);
  std::printf("[  POINTS  ] restoring: %d calls failed, one at a time\n", points);
  EXPECT_GE(points * step, 300);
}

TEST_F(BackupRestoreFaults, OfADecidingCallLeaveTheOldOrTheNewState) {
  int points = 0;
  for (const char* group : kDecidingGroups) points += TryEvery(group, PointStep(1), kFailures);
  std::printf("[  POINTS  ] deciding a restore: %d calls failed, one at a time\n", points);
  EXPECT_GE(points * PointStep(1), 15);
}

TEST_F(BackupRestoreFaults, OfAKillLeaveTheOldOrTheNewState) {
  int points = TryEvery("any", PointStep(61), {"KILL"});
  for (const char* group : kDecidingGroups) points += TryEvery(group, PointStep(1), {"KILL"});
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
