#include <cstdio>
#include <filesystem>
#include <map>
#include <sys/stat.h>

#include "keeping/PendingRestore.h"

#include "faults/FaultWorld.h"
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

/// Two clips, one of them new, a file of a whole voice and the notes are put in place, and a clip
/// is removed.
class PutClipsFaults : public FaultWorld {
 protected:
  PutClipsFaults() {
    fs::copy("program/voice", "before", fs::copy_options::recursive);
    fs::current_path(Full("program"));
    old_ = Clips();
    EXPECT_EQ(PutWith({"any", 1'000'000, "EIO"}).run.status, 0);
    new_ = Clips();
    EXPECT_EQ(new_.size(), old_.size() + 2);
  }

  FaultyRun PutWith(const Fault& fault) {
    return RunWith(fault, ProgramBeside("engine_steps"), {"put-clips"});
  }

  static void Reset() {
    for (const char* name : {"voice", "voices", "restore.pending"}) fs::remove_all(name);
    fs::copy("../before", "voice", fs::copy_options::recursive);
  }

  /// What must be all old or all new.
  static std::map<std::string, std::string> Clips() {
    std::map<std::string, std::string> files;
    for (const std::string name : {"voice", "voices"}) {
      if (!fs::is_directory(name)) continue;
      for (const auto& [path, entry] : Look(name)) {
        if (S_ISREG(entry.mode)) files[name + "/" + path] = entry.content;
      }
    }
    return files;
  }

  bool TryFault(const Fault& fault) {
    Reset();
    const FaultyRun faulty = PutWith(fault);
    SCOPED_TRACE(fault.Text());
    const ProgramRun& run = faulty.run;
    EXPECT_TRUE(run.status == -1 || run.status == 0 ||
                (run.status == 1 && run.errors.starts_with("engine_steps: ")))
        << run.status << run.errors;
    const bool wasPending = IsRestorePending("");
    if (!wasPending && run.status != -1) {
      EXPECT_TRUE(Clips() == (run.status == 0 ? new_ : old_)) << run.errors;
    }
    EXPECT_EQ(RunProgram(ProgramBeside("engine_steps"), {"finish-restore"}).status, 0);
    const auto now = Clips();
    EXPECT_TRUE(now == new_ || (now == old_ && !wasPending));
    EXPECT_FALSE(fs::exists("restore.pending"));
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
  std::map<std::string, std::string> old_;
  std::map<std::string, std::string> new_;
};

TEST_F(PutClipsFaults, OfOneCallLeaveTheOldOrTheNewClips) {
  const int step = PointStep(5);
  int points = 0;
  for (const char* group : kGroups) points += TryEvery(group, step, kFailures);
  std::printf("[  POINTS  ] putting clips in place: %d calls failed, one at a time\n", points);
  EXPECT_GE(points * step, 60);
}

TEST_F(PutClipsFaults, OfAKillLeaveTheOldOrTheNewClips) {
  int points = TryEvery("any", PointStep(19), {"KILL"});
  for (const char* group : kDecidingGroups) points += TryEvery(group, PointStep(1), {"KILL"});
  std::printf("[  POINTS  ] putting clips in place: killed before %d different calls\n", points);
  EXPECT_GE(points * PointStep(1), 20);
}

TEST_F(PutClipsFaults, ThatAreHalfPutInPlaceAreFinishedByTheNextUpdate) {
  Reset();
  const Fault kill{.group = "rename", .number = 2, .failure = "KILL"};
  PutWith(kill);
  ASSERT_TRUE(IsRestorePending(""));
  fs::current_path(folder.Path());
  EXPECT_EQ(Update().status, 0);
  EXPECT_FALSE(fs::exists("program/restore.pending"));
  EXPECT_FALSE(fs::exists("program/voice/pounds.wav"));
  EXPECT_TRUE(fs::exists("program/voices/Kim/1.wav"));
}

}  // namespace
}  // namespace repvolta
