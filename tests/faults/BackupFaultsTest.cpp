#include <cstdio>
#include <filesystem>
#include <gmock/gmock.h>

#include "faults/FaultWorld.h"
#include "support/BackedUp.h"
#include "support/ProgramsBeside.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

/// In turn, so that each call meets several of them.
const std::vector<const char*> kFailures = {"EIO", "ENOSPC", "EACCES"};

constexpr const char* kGroups[] = {"open", "write", "fsync", "rename", "unlink", "read",
                                   "list", "mode",  "stat",  "close",  "lock"};

/// Backing up the program directory over an older backup.
class BackupFaults : public FaultWorld {
 protected:
  BackupFaults() {
    PutFile("program/versions/Monday/2026-11-22 05.32.06 before update.RPV", "old");
    fs::create_directory("out");
    fs::current_path(Full("program"));
    PutFile("../out/b.zip", "old");
    EXPECT_EQ(RunProgram(ProgramBeside("engine_steps"), {"backup"}).status, 0);
    right_ = FilesIn("../out/b.zip");
    EXPECT_EQ(right_.size(), 18U);
    before_ = Look(".");
  }

  FaultyRun BackUpWith(const Fault& fault) {
    fs::remove_all("../out");
    PutFile("../out/b.zip", "old");
    return RunWith(fault, ProgramBeside("engine_steps"), {"backup"});
  }

  bool IsOld() const { return GetTextFile("../out/b.zip") == "old"; }

  void ExpectOldOrNew(bool isNew) const {
    EXPECT_TRUE(isNew ? FilesIn("../out/b.zip") == right_ : IsOld());
    EXPECT_TRUE(Look(".") == before_) << "the program directory was touched";
  }

  static std::vector<std::string> Left() {
    std::vector<std::string> names;
    for (const auto& [path, entry] : Look("../out")) names.push_back(path);
    return names;
  }

  /// False when there is no such call.
  bool TryFault(const Fault& fault) {
    const FaultyRun faulty = BackUpWith(fault);
    SCOPED_TRACE(fault.Text());
    const ProgramRun& run = faulty.run;
    EXPECT_TRUE(run.status == 0 || (run.status == 1 && run.errors.starts_with("engine_steps: ")))
        << run.status << run.errors;
    ExpectOldOrNew(run.status == 0);
    EXPECT_THAT(Left(), ElementsAre("b.zip"));
    return faulty.hit;
  }

 private:
  std::map<std::string, std::string> right_;
  Entries before_;
};

TEST_F(BackupFaults, OfOneCallLeaveTheOldOrTheNewBackup) {
  const int step = PointStep(9);
  int points = 0;
  for (const char* group : kGroups) {
    std::size_t kind = 0;
    for (int number = 1; TryFault({group, number, kFailures[kind++ % kFailures.size()]});
         number += step) {
      ++points;
    }
  }
  std::printf("[  POINTS  ] backing up: %d calls failed, one at a time\n", points);
  EXPECT_GE(points * step, 150);
}

TEST_F(BackupFaults, ThatAreNoneChangeNothing) {
  for (const auto& [group, failure] :
       {std::pair("read", "SHORT"), std::pair("read", "EINTR"), std::pair("write", "SHORT"),
        std::pair("fsync", "EINTR"), std::pair("list", "UNTYPED")}) {
    const FaultyRun faulty = BackUpWith({group, 1, failure});
    EXPECT_TRUE(faulty.hit) << group;
    EXPECT_EQ(faulty.run.status, 0) << faulty.run.errors;
    ExpectOldOrNew(true);
  }
}

TEST_F(BackupFaults, OfAKillLeaveTheOldOrTheNewBackupAndRoomForTheNext) {
  const int step = PointStep(60);
  int points = 0;
  for (int number = 1;; number += step, ++points) {
    const Fault kill{.group = "any", .number = number, .failure = "KILL"};
    SCOPED_TRACE(kill.Text());
    if (!BackUpWith(kill).hit) break;
    ExpectOldOrNew(!IsOld());
    EXPECT_EQ(RunProgram(ProgramBeside("engine_steps"), {"backup"}).status, 0);
    ExpectOldOrNew(true);
    EXPECT_THAT(Left(), ElementsAre("b.zip"));
  }
  EXPECT_GE(points * step, 200);
}

}  // namespace
}  // namespace repvolta
