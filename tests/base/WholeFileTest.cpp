#include <filesystem>
#include <gtest/gtest.h>
#include <unistd.h>

#include "base/File.h"
#include "base/FileError.h"
#include "base/FileStatus.h"
#include "base/WholeFile.h"
#include "base/WorkingFile.h"

#include "support/FailingClose.h"
#include "support/OrdinaryRights.h"
#include "support/TemporaryFolder.h"
#include "support/UnreadableFile.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

std::size_t EntriesHere() {
  return static_cast<std::size_t>(
      std::distance(fs::directory_iterator("."), fs::directory_iterator()));
}

TEST(WholeFileWriter, WritesAgainOnceALeftoverCanBeRemoved) {
  TemporaryFolder folder;
  PutFile(WorkingName("workouts/Monday.RPV"), "half");
  {
    const UnreadableFile readOnly("workouts", fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_THROW(WriteWholeFile("workouts/Monday.RPV", AsBytes("first")), FileError);
  }
  WriteWholeFile("workouts/Monday.RPV", AsBytes("second"));
  EXPECT_EQ(GetTextFile("workouts/Monday.RPV"), "second");
}

std::string FailureOfWriting(const std::string& path) {
  try {
    WriteWholeFile(path, AsBytes("new"));
  } catch (const FileError& error) {
    return error.what();
  }
  return "written";
}

TEST(WholeFileWriter, SaysWhyNothingCanBeMadeBesideTheFile) {
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

TEST(WholeFileWriter, NamesAFolderThatStandsInItsWay) {
  TemporaryFolder folder;
  fs::create_directories("workouts/.Monday.RPV.new");
  EXPECT_EQ(FailureOfWriting("workouts/Monday.RPV"),
            "workouts/Monday.RPV could not be written: workouts/.Monday.RPV.new could not be "
            "deleted: Is a directory");
}

TEST(WholeFileWriter, KeepsTheOldFileWhenTheLastCheckFails) {
  TemporaryFolder folder;
  PutFile("Monday.RPV", "old");
  {
    WholeFileWriter writer("Monday.RPV");
    writer.Append("new");
    const auto changed = [] { throw FileError("Monday.RPV", "could not be written", "Changed"); };
    EXPECT_THROW(writer.Commit(changed), FileError);
    EXPECT_FALSE(writer.Placed());
  }
  EXPECT_EQ(GetTextFile("Monday.RPV"), "old");
  EXPECT_EQ(EntriesHere(), 1U);
}

TEST(WholeFileWriter, ChecksLastWhenTheNewFileIsReadyForItsPlace) {
  TemporaryFolder folder;
  WholeFileWriter writer("Monday.RPV");
  writer.Append("new");
  writer.Commit([] {
    EXPECT_EQ(GetTextFile(WorkingName("Monday.RPV")), "new");
    EXPECT_FALSE(FileExists("Monday.RPV"));
  });
}

TEST(WholeFileWriter, AppendsTheRestOfAFileInItsPlace) {
  TemporaryFolder folder;
  PutFile("song", "old tag, audio");
  WholeFileWriter writer("song");
  writer.Append("new tag, ");
  writer.AppendRest(File::Open("song", File::Access::kRead), 9);
  writer.Append("!");
  writer.Commit();
  EXPECT_EQ(GetTextFile("song"), "new tag, audio!");
}

/// A group that this user is not in.
constexpr gid_t kOtherGroup = 12345;

TEST(WriteWholeFile, KeepsTheGroup) {
  TemporaryFolder folder;
  PutFile("Monday.RPV", "old");
  fs::permissions("Monday.RPV", fs::perms(0660));
  // Only the superuser can give it to any group; for others it stays in their own.
  const bool isGiven = chown("Monday.RPV", geteuid(), kOtherGroup) == 0;

  WriteWholeFile("Monday.RPV", AsBytes("new"));

  EXPECT_EQ(StatusOf("Monday.RPV", Links::kSeen)->st_gid, isGiven ? kOtherGroup : getegid());
  EXPECT_EQ(fs::status("Monday.RPV").permissions(), fs::perms(0660));
}

TEST(WriteWholeFile, OpensNothingToAGroupThatItCannotKeep) {
  TemporaryFolder folder;
  for (const auto& [before, after] : {std::pair{0660, 0600}, {0644, 0644}, {0604, 0600}}) {
    PutFile("Monday.RPV", "old");
    fs::permissions("Monday.RPV", fs::perms(before));
    const bool isGiven = chown("Monday.RPV", geteuid(), kOtherGroup) == 0;
    const OrdinaryRights ordinary;

    WriteWholeFile("Monday.RPV", AsBytes("new"));

    EXPECT_EQ(fs::status("Monday.RPV").permissions(), fs::perms(isGiven ? after : before));
  }
}

TEST(WriteWholeFile, KeepsTheOldFileWhereTheCloseCallsTheNewUnwritten) {
  TemporaryFolder folder;
  PutFile("Monday.RPV", "old");

  const FailingClose unwritten(WorkingName("Monday.RPV"));
  EXPECT_THROW(WriteWholeFile("Monday.RPV", AsBytes("new")), FileError);

  EXPECT_EQ(GetTextFile("Monday.RPV"), "old");
  EXPECT_EQ(EntriesHere(), 1U);
}

}  // namespace
}  // namespace repvolta
