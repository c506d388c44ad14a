#include <cstdio>
#include <filesystem>
#include <sys/stat.h>

#include "keeping/PendingRestore.h"

#include "faults/OldOrNewFaults.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

/// Two clips, one of them new, a file of a whole voice and the notes are put in place, and a clip
/// is removed.
class PutClipsFaults : public OldOrNewFaults {
 protected:
  PutClipsFaults() : OldOrNewFaults("put-clips") {
    fs::copy("voice", "../before", fs::copy_options::recursive);
    LearnOldAndNew();
    EXPECT_EQ(New().size(), Old().size() + 2);
  }

  void Reset() override {
    for (const char* name : {"voice", "voices", "restore.pending"}) fs::remove_all(name);
    fs::copy("../before", "voice", fs::copy_options::recursive);
  }

  Files Own() const override {
    Files files;
    for (const std::string name : {"voice", "voices"}) {
      if (!fs::is_directory(name)) continue;
      for (const auto& [path, entry] : Look(name)) {
        if (S_ISREG(entry.mode)) files[name + "/" + path] = entry.content;
      }
    }
    return files;
  }
};

TEST_F(PutClipsFaults, OfOneCallLeaveTheOldOrTheNewClips) {
  const int distance = PointStep(5);
  const int points = FailEveryCall(distance);
  std::printf("[  POINTS  ] putting clips in place: %d calls failed, one at a time\n", points);
  EXPECT_GE(points * distance, 60);
}

TEST_F(PutClipsFaults, OfAKillLeaveTheOldOrTheNewClips) {
  const int points = KillAmid(PointStep(19));
  std::printf("[  POINTS  ] putting clips in place: killed before %d different calls\n", points);
  EXPECT_GE(points * PointStep(1), 20);
}

TEST_F(PutClipsFaults, ThatAreHalfPutInPlaceAreFinishedByTheNextUpdate) {
  Reset();
  ChangeWith({.group = "rename", .number = 2, .failure = "KILL"});
  ASSERT_TRUE(IsRestorePending(""));
  fs::current_path(folder.Path());
  EXPECT_EQ(Update().status, 0);
  EXPECT_FALSE(fs::exists("program/restore.pending"));
  EXPECT_FALSE(fs::exists("program/voice/pounds.wav"));
  EXPECT_TRUE(fs::exists("program/voices/Kim/1.wav"));
}

}  // namespace
}  // namespace repvolta
