#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "base/File.h"
#include "base/FileError.h"
#include "base/Lock.h"

#include "support/FailingClose.h"
#include "support/FailureOf.h"
#include "support/FullDisk.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

TEST(File, RefusesWhatIsNoRegularFile) {
  TemporaryFolder folder;
  fs::create_directory("Song.mp3");
  ASSERT_EQ(mkfifo("pipe", 0600), 0);

  EXPECT_THROW(File::Open("Song.mp3", File::Access::kRead), FileError);
  EXPECT_THROW(File::Open("pipe", File::Access::kRead), FileError);
}

TEST(File, NamesTheFileAndTheReason) {
  TemporaryFolder folder;
  try {
    File::Open("gone.wav", File::Access::kRead);
    FAIL() << "opened";
  } catch (const FileError& error) {
    EXPECT_STREQ(error.what(), "gone.wav could not be read: No such file or directory");
    EXPECT_EQ(error.Reason(), "No such file or directory");
  }
}

TEST(File, SaysWhatElseThanAFileIsRefusedFor) {
  TemporaryFolder folder;
  fs::create_directory("folder");
  PutFile("a", "x");
  fs::create_hard_link("a", "b");
  EXPECT_EQ(FailureOf([] { File::Open("folder", File::Access::kRead); }),
            "folder could not be read: It is not a file");
  EXPECT_EQ(FailureOf([] { File::Open("gone", File::Access::kReadWrite); }),
            "gone could not be opened for writing: No such file or directory");
  EXPECT_EQ(FailureOf([] { File::OpenOrCreate("b"); }),
            "b could not be opened for writing: It has another name elsewhere");
  EXPECT_EQ(FailureOf([] { File::CreateNew("a"); }), "a could not be created: File exists");
}

TEST(File, SaysThatItCouldNotBeWritten) {
  TemporaryFolder folder;
  File file = File::CreateNew("a");
  const FullDisk disk(0);
  EXPECT_EQ(FailureOf([&] { file.WriteAt(0, AsBytes("x")); }),
            "a could not be written: File too large");
}

TEST(File, IsTheOtherWhenThatTakesItsPlace) {
  TemporaryFolder folder;
  PutFile("a", "first");
  PutFile("b", "second one");
  File file = File::Open("a", File::Access::kRead);
  // cppcheck-suppress redundantInitialization
  file = File::Open("b", File::Access::kRead);
  EXPECT_EQ(file.Path(), "b");
  EXPECT_EQ(file.Size(), 10U);
}

TEST(File, IsNotMadeThroughALink) {
  TemporaryFolder folder;
  PutFile("precious", "old");
  fs::create_symlink("precious", "Monday.M3U");
  EXPECT_EQ(FailureOf([] { File::OpenOrCreate("Monday.M3U"); }),
            "Monday.M3U could not be opened for writing: Too many levels of symbolic links");
}

TEST(File, ReadsOnlyWhatIsThere) {
  TemporaryFolder folder;
  PutFile("a", "abcdef");
  Bytes buffer(10);

  EXPECT_EQ(File::Open("a", File::Access::kRead).ReadAt(4, buffer), 2U);
  EXPECT_EQ(File::Open("a", File::Access::kRead).ReadAt(9, buffer), 0U);
}

TEST(CopyFileOver, ReplacesALinkAndNotWhatItPointsTo) {
  TemporaryFolder folder;
  PutFile("song", "new");
  PutFile("precious", "old");
  fs::create_symlink("precious", "copy");

  CopyFileOver("song", "copy");

  EXPECT_EQ(GetTextFile("precious"), "old");
  EXPECT_EQ(GetTextFile("copy"), "new");
}

TEST(CopyFileOver, KeepsTheTargetWhenTheSourceIsMissing) {
  TemporaryFolder folder;
  PutFile("copy", "old");

  EXPECT_THROW(CopyFileOver("song", "copy"), FileError);

  EXPECT_EQ(GetTextFile("copy"), "old");
}

TEST(CopyFileOver, LeavesNothingHalfWritten) {
  TemporaryFolder folder;
  PutFile("song", std::string(5000, 'x'));

  {
    FullDisk disk(1000);
    EXPECT_THROW(CopyFileOver("song", "copy"), FileError);
  }

  EXPECT_FALSE(fs::exists("copy"));
}

TEST(CopyFileToNew, LeavesNothingThatTheCloseCallsUnwritten) {
  TemporaryFolder folder;
  PutFile("song", "x");

  const FailingClose unwritten("copy");
  EXPECT_THROW(CopyFileToNew("song", "copy"), FileError);

  EXPECT_FALSE(fs::exists("copy"));
}

TEST(CopyFileToNew, RefusesToReplace) {
  TemporaryFolder folder;
  PutFile("song", "new");
  PutFile("copy", "old");

  EXPECT_THROW(CopyFileToNew("song", "copy"), FileError);

  EXPECT_EQ(GetTextFile("copy"), "old");
}

TEST(CopyFileToNew, PutsAHeadInFrontOfTheRest) {
  TemporaryFolder folder;
  PutFile("source", std::string(300000, 'x') + "end");
  CopyFileToNew("source", "target", {AsBytes("head"), 299998});
  EXPECT_EQ(GetTextFile("target"), "headxxend");
}

TEST(CopyFileToNew, IsOnlyTheHeadWhereNothingIsBehindTheOffset) {
  TemporaryFolder folder;
  PutFile("source", "four");
  CopyFileToNew("source", "target", {AsBytes("head"), 4});
  EXPECT_EQ(GetTextFile("target"), "head");
}

TEST(CopyContent, TellsWhereItCameTo) {
  TemporaryFolder folder;
  for (const std::size_t size : {std::size_t{5}, std::size_t{500'000}}) {
    PutFile("source", std::string(size, 'x'));
    File to = File::OpenOrCreate("target");
    const File from = File::Open("source", File::Access::kRead);
    EXPECT_EQ(CopyContent(from, 2, to, 10), 10 + size - 2) << size;
    EXPECT_EQ(CopyContent(from, size, to, 10), 10U) << size;
  }
}

TEST(CopyContent, CopiesBetweenFileSystems) {
  TemporaryFolder folder;
  const std::string content = std::string(400000, 'x') + "end";
  PutFile("source", content);
  const std::string elsewhere = "/dev/shm/repvolta-" + std::to_string(getpid());
  CopyFileToNew("source", elsewhere);
  EXPECT_TRUE(GetTextFile(elsewhere) == content);
  RemoveFile(elsewhere);
}

TEST(CopyContent, CopiesAFileToItsOwnEnd) {
  TemporaryFolder folder;
  std::string content(300000, 'x');
  content += "end";
  PutFile("file", content);
  {
    const File from = File::Open("file", File::Access::kRead);
    File to = File::Open("file", File::Access::kReadWrite);
    CopyContent(from, 1, to, content.size() - 1);
  }
  // The last byte had been overwritten when it was read.
  const std::string beginning = content.substr(0, content.size() - 1);
  EXPECT_TRUE(GetTextFile("file") == beginning + beginning.substr(1) + "x");
}

TEST(File, StaysLockedWhenItIsConfirmed) {
  TemporaryFolder folder;
  const File file = File::CreateNew("file");
  ASSERT_EQ(TryLock(file.OpenAs()), 0);
  file.ConfirmWritten();
  EXPECT_EQ(TryLock(OpenDescriptor("file", 0)), EWOULDBLOCK);
}

TEST(File, IsNotOpenedForMoreWhereItHasAnotherName) {
  TemporaryFolder folder;
  PutFile("precious", "old");
  fs::create_hard_link("precious", "Monday.M3U");
  fs::create_symlink("precious", "Tuesday.M3U");
  EXPECT_THROW(File::OpenOrCreate("Monday.M3U"), FileError);
  EXPECT_THROW(File::OpenOrCreate("Tuesday.M3U"), FileError);
}

TEST(RemoveFile, RemovesReadOnlyFilesAndMindsNoMissingOnes) {
  TemporaryFolder folder;
  PutFile("temp.wav", "x");
  fs::permissions("temp.wav", fs::perms(0400));

  RemoveFile("temp.wav");
  RemoveFile("temp.wav");

  EXPECT_FALSE(FileExists("temp.wav"));
}

}  // namespace
}  // namespace repvolta
