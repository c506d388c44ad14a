#include <cstdio>
#include <filesystem>
#include <vector>

#include "app/RecordFormat.h"

#include "faults/FaultWorld.h"
#include "support/ProgramsBeside.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

constexpr const char* kWorkout = "workouts/Monday.RPV";
constexpr const char* kVersions = "versions/Monday";
constexpr const char* kVersion = "versions/Monday/2026-11-20 12.00.00 before update.RPV";

/// An earlier version of Monday is restored.
class RestoreFaults : public FaultWorld {
 protected:
  RestoreFaults() {
    fs::current_path(Full("program"));
    state.Workout[0].SetValue1[0] = 45;
    then_ = EncodeWorkout(state.Workout);
  }

  FaultyRun Restore(const Fault& fault) {
    fs::remove_all("versions");
    PutFile(kVersion, then_);
    PutFile(kWorkout, oldWorkout);
    return RunWith(fault, ProgramBeside("engine_steps"), {"restore"});
  }

  bool IsKept() const {
    for (const auto& entry : fs::directory_iterator(kVersions)) {
      if (entry.path().extension() == ".RPV" && GetFile(entry.path()) == oldWorkout) return true;
    }
    return false;
  }

  /// The workout is the old one or the restored one; then the old one is kept, or the person has
  /// been asked. All versions are whole.
  void ExpectWhole(const FaultyRun& faulty) const {
    const Bytes workout = GetFile(kWorkout);
    EXPECT_TRUE(workout == oldWorkout || workout == then_);
    if (workout == then_) {
      EXPECT_TRUE(IsKept() || faulty.run.output.find("asked: ") != std::string::npos);
    }
    EXPECT_TRUE(GetFile(kVersion) == then_);
    for (const auto& entry : fs::directory_iterator(kVersions)) {
      if (entry.path().extension() != ".RPV") continue;
      const Bytes version = GetFile(entry.path());
      EXPECT_TRUE(version == oldWorkout || version == then_) << entry.path();
    }
  }

  Bytes then_;
};

TEST_F(RestoreFaults, OfOneCallLeaveTheOldOrTheEarlierWorkout) {
  const std::vector<std::pair<const char*, const char*>> failures = {
      {"open", "EIO"},   {"open", "ENOSPC"},   {"write", "ENOSPC"}, {"fsync", "EIO"},
      {"rename", "EIO"}, {"rename", "EACCES"}, {"mkdir", "ENOSPC"}, {"unlink", "EIO"},
      {"read", "EIO"},   {"list", "EIO"},      {"mode", "EIO"},     {"stat", "EIO"},
      {"close", "EIO"},  {"lock", "ENOLCK"}};
  int points = 0;
  for (const auto& [group, failure] : failures) {
    for (int number = 1;; number += PointStep(4)) {
      const Fault fault{.group = group, .number = number, .failure = failure};
      const FaultyRun faulty = Restore(fault);
      SCOPED_TRACE(fault.Text());
      ExpectWhole(faulty);
      if (!faulty.hit) {
        EXPECT_TRUE(GetFile(kWorkout) == then_);
        break;
      }
      EXPECT_FALSE(fs::exists("workouts/.Monday.RPV.new"));
      ++points;
    }
  }
  std::printf("[  POINTS  ] restoring a version: %d calls failed, one at a time\n", points);
  EXPECT_GE(points, 7);
}

TEST_F(RestoreFaults, ThatOnlyInterruptACallChangeNothing) {
  for (const auto& [group, failure] : std::vector<std::pair<const char*, const char*>>{
           {"write", "SHORT"}, {"read", "SHORT"}, {"open", "EINTR"}, {"fsync", "EINTR"}}) {
    for (int number = 1;; number += PointStep(3)) {
      const Fault fault{.group = group, .number = number, .failure = failure};
      const FaultyRun faulty = Restore(fault);
      EXPECT_TRUE(GetFile(kWorkout) == then_) << fault.Text();
      if (!faulty.hit) break;
    }
  }
}

TEST_F(RestoreFaults, ThatKillLeaveTheOldOrTheEarlierWorkout) {
  int points = 0;
  for (int number = 1;; number += PointStep(3)) {
    const Fault kill{.group = "any", .number = number, .failure = "KILL"};
    const FaultyRun faulty = Restore(kill);
    SCOPED_TRACE(kill.Text());
    ExpectWhole(faulty);
    if (!faulty.hit) break;
    ++points;
  }
  std::printf("[  POINTS  ] killed before %d different calls of a restore\n", points);
  EXPECT_GE(points * PointStep(3), 150);
}

}  // namespace
}  // namespace repvolta
