#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <unistd.h>

#include "base/File.h"
#include "base/FileError.h"
#include "base/Folder.h"
#include "base/Lock.h"
#include "base/WholeFile.h"
#include "base/WorkingFile.h"

#include "support/FailureOf.h"
#include "support/OrdinaryRights.h"
#include "support/TemporaryFolder.h"
#include "support/UnreadableFile.h"
#include "support/WeakLocks.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

std::string FailureOfWriting(const std::string& path) {
  return FailureOf([&] { WriteWholeFile(path, AsBytes("new")); });
}

TEST(WorkingFile, NamesAFolderThatStandsInItsWay) {
  TemporaryFolder folder;
  fs::create_directories("workouts/.Monday.RPV.new");
  EXPECT_EQ(FailureOfWriting("workouts/Monday.RPV"),
            "workouts/Monday.RPV could not be written: workouts/.Monday.RPV.new could not be "
            "deleted: Is a directory");
}

TEST(WorkingFile, StandsBesideItsFile) {
  EXPECT_EQ(WorkingName("workouts/Monday.RPV"), "workouts/.Monday.RPV.new");
  EXPECT_EQ(WorkingName("musiclist.txt"), ".musiclist.txt.new");
}

TEST(WorkingFile, IsEmptyAndLocked) {
  TemporaryFolder folder;
  PutFile(WorkingName("Monday.RPV"), "half");
  const File file = CreateWorkingFile("Monday.RPV");
  EXPECT_EQ(file.Path(), WorkingName("Monday.RPV"));
  EXPECT_EQ(file.Size(), 0U);
  EXPECT_EQ(TryLock(OpenDescriptor(file.Path(), O_RDONLY)), EWOULDBLOCK);
}

TEST(WorkingFile, TakesOverWhatADeadProcessLeft) {
  TemporaryFolder folder;
  PutFile(WorkingName("Monday.RPV"), "half");
  WriteWholeFile("Monday.RPV", AsBytes("new"));
  EXPECT_EQ(GetTextFile("Monday.RPV"), "new");
  EXPECT_FALSE(fs::exists(WorkingName("Monday.RPV")));
}

TEST(WorkingFile, NeverWritesThroughALink) {
  TemporaryFolder folder;
  PutFile("precious", "old");
  fs::create_symlink("precious", WorkingName("a"));
  fs::create_hard_link("precious", WorkingName("b"));
  fs::create_symlink("precious", "c");

  for (const char* name : {"a", "b", "c"}) WriteWholeFile(name, AsBytes("new"));

  EXPECT_EQ(GetTextFile("precious"), "old");
  EXPECT_EQ(GetTextFile("c"), "new");
  for (const char* name : {"a", "b", "c"}) EXPECT_FALSE(IsTaken(WorkingName(name))) << name;
}

TEST(WorkingFile, LeavesAFileAloneThatAnotherIsWriting) {
  TemporaryFolder folder;
  WholeFileWriter first("Monday.RPV");
  first.Append("first");

  EXPECT_EQ(FailureOf([] { WriteWholeFile("Monday.RPV", AsBytes("second")); }),
            "Monday.RPV could not be written: Another program is writing it");
  first.Commit();

  EXPECT_EQ(GetTextFile("Monday.RPV"), "first");
  WriteWholeFile("Monday.RPV", AsBytes("second"));
  EXPECT_EQ(GetTextFile("Monday.RPV"), "second");
}

/// Such a disk refuses to lock what is only open for reading, which is no sign of a dead writer.
TEST(WorkingFile, LeavesAFileAloneThatAnotherIsWritingOnANetworkDisk) {
  TemporaryFolder folder;
  const WeakLocks network;
  const File file = CreateWorkingFile("a");
  EXPECT_THROW(CreateWorkingFile("a"), FileError);
  EXPECT_TRUE(IsStillAt(file.OpenAs(), WorkingName("a")));
}

TEST(WorkingFile, SaysSoWhereAFolderIsInItsWay) {
  TemporaryFolder folder;
  fs::create_directory(WorkingName("Monday.RPV"));
  EXPECT_THROW(WriteWholeFile("Monday.RPV", AsBytes("new")), FileError);
}

TEST(WorkingFile, IsPrivateWhileItIsWritten) {
  TemporaryFolder folder;
  const WholeFileWriter writer("Monday.RPV");
  EXPECT_EQ(fs::status(WorkingName("Monday.RPV")).permissions(), fs::perms(0600));
}

TEST(WorkingFile, WritesNamesOfAnyLength) {
  TemporaryFolder folder;
  const std::string longest(255, 'x');
  WriteWholeFile(longest, AsBytes("new"));
  EXPECT_EQ(GetTextFile(longest), "new");
}

TEST(WorkingFile, WritesAgainOnceALeftoverCanBeRemoved) {
  TemporaryFolder folder;
  PutFile(WorkingName("workouts/Monday.RPV"), "half");
  {
    const UnreadableFile readOnly("workouts", fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_THROW(WriteWholeFile("workouts/Monday.RPV", AsBytes("first")), FileError);
  }
  WriteWholeFile("workouts/Monday.RPV", AsBytes("second"));
  EXPECT_EQ(GetTextFile("workouts/Monday.RPV"), "second");
}

TEST(WorkingFile, SaysWhyNothingCanBeMadeBesideTheFile) {
  TemporaryFolder folder;
  fs::create_directory("workouts");
  const UnreadableFile readOnly("workouts", fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_EQ(FailureOfWriting("workouts/Monday.RPV"),
            "workouts/Monday.RPV could not be written: Permission denied");
}

/// A leftover of a user whose name nobody knows.
class ForeignLeftover : public testing::Test {
 protected:
  void Leave(fs::perms rights) {
    PutFile("workouts/.Monday.RPV.new", "half");
    fs::permissions("workouts/.Monday.RPV.new", rights);
    // For others than the superuser it stays their own, and is then removed.
    isGiven_ = chown("workouts/.Monday.RPV.new", kUser, getegid()) == 0;
  }

  void ExpectTold() {
    const OrdinaryRights ordinary;
    EXPECT_EQ(FailureOfWriting("workouts/Monday.RPV"),
              isGiven_
                  ? "workouts/Monday.RPV could not be written: .Monday.RPV.new belongs to user "
                    "12345 and cannot be removed"
                  : "written");
  }

  static constexpr uid_t kUser = 12345;
  bool isGiven_ = false;
  TemporaryFolder folder;
};

TEST_F(ForeignLeftover, IsToldWhereItCannotBeOpened) {
  Leave(fs::perms(0600));
  ExpectTold();
}

TEST_F(ForeignLeftover, IsToldWhereItCannotBeRemoved) {
  Leave(fs::perms(0644));
  fs::permissions("workouts", fs::perms(01777));
  ASSERT_EQ(chown("workouts", isGiven_ ? kUser : geteuid(), getegid()), 0);
  ExpectTold();
}

}  // namespace
}  // namespace repvolta
