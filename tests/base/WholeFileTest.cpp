#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/File.h"
#include "base/FileError.h"
#include "base/FileStatus.h"
#include "base/WholeFile.h"
#include "base/WorkingFile.h"

#include "support/FailingClose.h"
#include "support/FullDisk.h"
#include "support/OrdinaryRights.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

std::size_t EntriesHere() {
  return static_cast<std::size_t>(
      std::distance(fs::directory_iterator("."), fs::directory_iterator()));
}

TEST(WriteWholeFile, ReplacesTheContentAndKeepsThePermissions) {
  TemporaryFolder folder;
  PutFile("settings.dat", "old");
  fs::permissions("settings.dat", fs::perms(0640));

  WriteWholeFile("settings.dat", AsBytes("new"));

  EXPECT_EQ(GetTextFile("settings.dat"), "new");
  EXPECT_EQ(fs::status("settings.dat").permissions(), fs::perms(0640));
}

TEST(WriteWholeFile, GivesANewFileTheUsualPermissions) {
  TemporaryFolder folder;
  const mode_t before = umask(022);

  WriteWholeFile("new", AsBytes("x"));
  umask(before);

  EXPECT_EQ(fs::status("new").permissions(), fs::perms(0644));
}

TEST(WriteWholeFile, LeavesTheOldFileWholeOnAFullDisk) {
  TemporaryFolder folder;
  PutFile("Monday.RPV", "old");

  {
    FullDisk disk(1000);
    EXPECT_THROW(WriteWholeFile("Monday.RPV", Bytes(5000)), FileError);
  }

  EXPECT_EQ(GetTextFile("Monday.RPV"), "old");
  EXPECT_EQ(EntriesHere(), 1U);
}

TEST(WriteWholeFile, NamesTheFileAndNotTheOneBesideIt) {
  TemporaryFolder folder;
  try {
    WriteWholeFile("no/such/folder", AsBytes("x"));
    FAIL() << "written";
  } catch (const FileError& error) {
    EXPECT_STREQ(error.what(), "no/such/folder could not be written: No such file or directory");
  }
}

TEST(WholeFileWriter, LeavesNothingWithoutACommit) {
  TemporaryFolder folder;
  {
    WholeFileWriter("musiclist.txt").Append("a song\n");
  }
  EXPECT_EQ(EntriesHere(), 0U);
}

TEST(WholeFileWriter, KnowsTheStampOfWhatItPutInPlace) {
  TemporaryFolder folder;
  WholeFileWriter writer("Monday.RPV");
  EXPECT_FALSE(writer.Placed());
  writer.Commit();
  EXPECT_EQ(writer.Placed(), StampOf("Monday.RPV"));
}

TEST(WholeFileWriter, WritesMoreThanItHolds) {
  TemporaryFolder folder;
  WholeFileWriter writer("musiclist.txt");
  const std::string line(999, 'x');
  for (int i = 0; i < 1000; ++i) writer.Append(line + "\n");
  writer.Commit();
  EXPECT_EQ(fs::file_size("musiclist.txt"), 1000000U);
}

TEST(ReadWholeFile, StopsAtTheLimit) {
  TemporaryFolder folder;
  PutFile("long", std::string(5000, 'x'));
  EXPECT_EQ(ReadWholeFile("long", 100).size(), 100U);
  EXPECT_EQ(ReadWholeFile("long", 9000).size(), 5000U);
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
