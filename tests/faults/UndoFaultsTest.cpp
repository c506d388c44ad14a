#include <cstdio>
#include <filesystem>
#include <vector>

#include "app/RecordFormat.h"

#include "faults/FaultWorld.h"
#include "support/ProgramsBeside.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

constexpr const char* kMonday = "workouts/Monday.RPV";
constexpr const char* kNew = "workouts/New.RPV";

/// A step that changed Monday and made another workout is undone and made again.
class UndoFaults : public FaultWorld {
 protected:
  UndoFaults() {
    fs::current_path(Full("program"));
    state.Workout = DecodeWorkout(oldWorkout);
    state.Workout[0].SetValue1[0] = 99;
    changed_ = EncodeWorkout(state.Workout);
  }

  FaultyRun UndoAndRedo(const Fault& fault) {
    fs::remove_all("versions");
    fs::remove(kNew);
    PutFile(kMonday, oldWorkout);
    return RunWith(fault, ProgramBeside("engine_steps"), {"undo"});
  }

  bool IsOld() const { return GetFile(kMonday) == oldWorkout && !fs::exists(kNew); }
  bool IsNew() const {
    return GetFile(kMonday) == changed_ && fs::exists(kNew) && GetFile(kNew) == changed_;
  }

  /// Whatever happened, each file is one of those that it ever was.
  void ExpectEachIsWhole() const {
    const Bytes monday = GetFile(kMonday);
    EXPECT_TRUE(monday == oldWorkout || monday == changed_);
    if (fs::exists(kNew)) {
      EXPECT_TRUE(GetFile(kNew) == changed_);
    }
  }

  Bytes changed_;
};

TEST_F(UndoFaults, OfOneCallLeaveAllFilesBeforeOrAllBehindTheStep) {
  const std::vector<std::pair<const char*, const char*>> failures = {
      {"open", "EIO"},   {"open", "ENOSPC"},  {"write", "ENOSPC"}, {"fsync", "EIO"},
      {"rename", "EIO"}, {"mkdir", "EACCES"}, {"unlink", "EIO"},   {"read", "EIO"},
      {"list", "EIO"},   {"mode", "EIO"},     {"stat", "EIO"},     {"close", "EIO"},
      {"lock", "ENOLCK"}};
  int points = 0;
  for (const auto& [group, failure] : failures) {
    for (int number = 1;; number += PointStep(3)) {
      const Fault fault{.group = group, .number = number, .failure = failure};
      const FaultyRun faulty = UndoAndRedo(fault);
      SCOPED_TRACE(fault.Text());
      EXPECT_TRUE(IsOld() || IsNew()) << faulty.run.errors;
      EXPECT_TRUE(IsNew() || faulty.run.status == 1) << "It is told.";
      if (!faulty.hit) break;
      ++points;
    }
  }
  std::printf("[  POINTS  ] undo and redo: %d calls failed, one at a time\n", points);
  EXPECT_GE(points, 14);
}

TEST_F(UndoFaults, ThatKillLeaveEachFileWhole) {
  int points = 0;
  for (int number = 1;; number += PointStep(7)) {
    const Fault kill{.group = "any", .number = number, .failure = "KILL"};
    const FaultyRun faulty = UndoAndRedo(kill);
    SCOPED_TRACE(kill.Text());
    ExpectEachIsWhole();
    if (!faulty.hit) break;
    ++points;
  }
  std::printf("[  POINTS  ] killed before %d different calls of undo and redo\n", points);
  EXPECT_GE(points * PointStep(7), 300);
}

}  // namespace
}  // namespace repvolta
