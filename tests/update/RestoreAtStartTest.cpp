#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "keeping/PendingRestore.h"
#include "update/RestoreAtStart.h"
#include "update/UpdateLock.h"

#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

/// A program directory in which the restore of a new "settings.dat" was decided.
class RestoreAtStart : public testing::Test {
 protected:
  RestoreAtStart() {
    PutFile("settings.dat", "old");
    RestoreStage stage("");
    stage.Add("settings.dat", AsBytes("new"));
    stage.Commit();
  }

  TemporaryFolder folder_;
};

TEST_F(RestoreAtStart, IsFinished) {
  FinishInterruptedRestore(folder_.Path());
  EXPECT_EQ(GetTextFile("settings.dat"), "new");
  EXPECT_FALSE(fs::exists("restore.pending"));
}

TEST_F(RestoreAtStart, IsLeftToTheProgramThatIsAtIt) {
  const UpdateLock lock(folder_.Path());
  EXPECT_THROW(FinishInterruptedRestore(folder_.Path()), UpdateRunning);
  EXPECT_EQ(GetTextFile("settings.dat"), "old");
}

TEST_F(RestoreAtStart, SaysWhyItCannotBeFinished) {
  fs::remove("settings.dat");
  PutFile("settings.dat/in the way", "");
  try {
    FinishInterruptedRestore(folder_.Path());
    FAIL() << "nothing was said";
  } catch (const RestoreUnfinished& error) {
    EXPECT_THAT(error.what(), HasSubstr(folder_.Path() + " is half changed: "));
    EXPECT_THAT(error.what(), HasSubstr("settings.dat could not be written: Is a directory"));
  }
}

TEST(RestoreAtStartWithoutARestore, MakesNothing) {
  const TemporaryFolder folder;
  FinishInterruptedRestore(folder.Path());
  EXPECT_TRUE(fs::is_empty("."));
}

TEST(RestoreAtStartWithoutARestore, RemovesWhatWasNotDecided) {
  const TemporaryFolder folder;
  PutFile("restore.pending/files/settings.dat", "half");
  FinishInterruptedRestore(folder.Path());
  EXPECT_FALSE(fs::exists("restore.pending"));
  EXPECT_FALSE(fs::exists("settings.dat"));
}

TEST(RestoreAtStartWithoutARestore, LeavesAloneWhatAnotherProgramIsPreparing) {
  const TemporaryFolder folder;
  const UpdateLock lock(folder.Path());
  PutFile("restore.pending/files/settings.dat", "half");
  FinishInterruptedRestore(folder.Path());
  EXPECT_TRUE(fs::exists("restore.pending/files/settings.dat"));
}

}  // namespace
}  // namespace repvolta
