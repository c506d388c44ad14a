#include "faults/OldOrNewFaults.h"

#include <filesystem>

#include "keeping/PendingRestore.h"

#include "support/ProgramsBeside.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

/// In turn, so that each call meets several of them.
const std::vector<const char*> kFailures = {"EIO", "ENOSPC", "EACCES"};

constexpr const char* kGroups[] = {"open", "write", "fsync", "rename", "mkdir", "unlink",
                                   "read", "list",  "mode",  "stat",   "close", "lock"};

/// The calls by which the change is decided and put in place.
constexpr const char* kDecidingGroups[] = {"rename", "mkdir", "unlink"};

}  // namespace

OldOrNewFaults::OldOrNewFaults(const char* step) : step_(step) {
  fs::current_path(Full("program"));
}

void OldOrNewFaults::LearnOldAndNew() {
  Reset();
  old_ = Own();
  EXPECT_EQ(ChangeWith({"any", 1'000'000, "EIO"}).run.status, 0);
  new_ = Own();
  EXPECT_NE(old_, new_);
}

int OldOrNewFaults::FailEveryCall(int distance) {
  int points = 0;
  for (const char* group : kGroups) points += TryEvery(group, distance, kFailures);
  return points;
}

int OldOrNewFaults::FailDecidingCalls() {
  int points = 0;
  for (const char* group : kDecidingGroups) points += TryEvery(group, PointStep(1), kFailures);
  return points;
}

int OldOrNewFaults::KillAmid(int distance) {
  int points = TryEvery("any", distance, {"KILL"});
  for (const char* group : kDecidingGroups) points += TryEvery(group, PointStep(1), {"KILL"});
  return points;
}

FaultyRun OldOrNewFaults::ChangeWith(const Fault& fault) {
  return RunWith(fault, ProgramBeside("engine_steps"), {step_});
}

void OldOrNewFaults::ExpectOldOrNew(const ProgramRun& run) const {
  EXPECT_TRUE(run.status == -1 || run.status == 0 ||
              (run.status == 1 && run.errors.starts_with("engine_steps: ")))
      << run.status << run.errors;
  const bool wasPending = IsRestorePending("");
  if (!wasPending && run.status != -1) {
    EXPECT_TRUE(Own() == (run.status == 0 ? new_ : old_)) << run.errors;
  }
  EXPECT_EQ(RunProgram(ProgramBeside("engine_steps"), {"finish-restore"}).status, 0);
  const Files now = Own();
  EXPECT_TRUE(now == new_ || (now == old_ && !wasPending));
  EXPECT_FALSE(fs::exists("restore.pending"));
}

/// Whether the call was reached.
bool OldOrNewFaults::TryFault(const Fault& fault) {
  Reset();
  const FaultyRun faulty = ChangeWith(fault);
  SCOPED_TRACE(fault.Text());
  ExpectOldOrNew(faulty.run);
  return faulty.hit;
}

int OldOrNewFaults::TryEvery(const std::string& group, int distance,
                             const std::vector<const char*>& failures) {
  std::size_t points = 0;
  for (int number = 1; TryFault({group, number, failures[points % failures.size()]});
       number += distance) {
    ++points;
  }
  return static_cast<int>(points);
}

}  // namespace repvolta
