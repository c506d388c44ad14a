#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "base/FileError.h"
#include "mp3/RepvoltaMP3.h"

#include "support/FullDisk.h"
#include "support/Mp3Bytes.h"
#include "support/TemporaryFolder.h"

namespace {

/// With what the system refuses to set the times of a file; 0: it does not.
int refusalOfTimes = 0;

}  // namespace

extern "C" int utimensat(int folder, const char* path, const timespec times[2],
                         int flags) noexcept {
  if (refusalOfTimes != 0) {
    errno = refusalOfTimes;
    return -1;
  }
  return static_cast<int>(syscall(SYS_utimensat, folder, path, times, flags));
}

namespace repvolta {
namespace {

namespace fs = std::filesystem;

void Cut(RepvoltaMP3::FileTimes times = RepvoltaMP3::FileTimes::kKept) {
  RepvoltaMP3 mp3;
  mp3.SetFileName("song.mp3");
  mp3.RemoveLeadingData(times);
}

constexpr timespec kAccess{1000000000, 123456789};
constexpr timespec kChange{1100000000, 987654321};

void SetOldTimes() {
  const timespec times[] = {kAccess, kChange};
  utimensat(AT_FDCWD, "song.mp3", times, 0);
}

struct stat StatusNow() {
  struct stat status{};
  stat("song.mp3", &status);
  return status;
}

/// The average bit rate counts the tag too, and is 0 without it.
Mp3Bytes SongWithoutABitRateOfItsOwn() {
  return Mp3Bytes()
      .Id3v2(Id3v2Bytes().Syncsafe().Text("TIT2", "Title").Padding(3000))
      .Frame({}, 60)
      .Xing(1, 100);
}

TEST(RemoveLeadingData, KnowsNothingOfAFileThatDividesByZeroWithoutItsTag) {
  TemporaryFolder folder;
  PutFile("song.mp3", SongWithoutABitRateOfItsOwn());
  RepvoltaMP3 mp3;
  mp3.SetFileName("song.mp3");
  mp3.RemoveLeadingData(RepvoltaMP3::FileTimes::kKept);
  EXPECT_EQ(GetFile("song.mp3").size(), 60U);
  EXPECT_FALSE(mp3.HasID3v2());
  EXPECT_EQ(mp3.Info().fileLength, 0);
  EXPECT_EQ(mp3.FileName(), "");
}

TEST(RemoveLeadingData, KeepsTheTimesOfAFileThatDividesByZeroWithoutItsTag) {
  TemporaryFolder folder;
  PutFile("song.mp3", SongWithoutABitRateOfItsOwn());
  SetOldTimes();
  Cut();
  EXPECT_EQ(StatusNow().st_mtim.tv_sec, kChange.tv_sec);
}

TEST(RemoveLeadingData, CutsTheTagAndTheGarbageBehindIt) {
  TemporaryFolder folder;
  const Mp3Bytes audio = Mp3Bytes().Frames(3).Id3v1("Title");
  PutFile("song.mp3", Mp3Bytes().Id3v2(Id3v2Bytes().Syncsafe().Padding(300)).Garbage(9).Raw(audio));

  Cut();

  EXPECT_EQ(GetFile("song.mp3"), Bytes(audio));
}

TEST(RemoveLeadingData, CutsAFileOfManyBlocks) {
  TemporaryFolder folder;
  const Mp3Bytes audio = Mp3Bytes().Frame().Garbage(1000000);
  PutFile("song.mp3", Mp3Bytes().Id3v2(Id3v2Bytes().Syncsafe().Padding(300 * 1024)).Raw(audio));

  Cut();

  EXPECT_EQ(GetFile("song.mp3"), Bytes(audio));
}

TEST(RemoveLeadingData, LeavesAFileThatStartsWithAudioAsItIs) {
  TemporaryFolder folder;
  PutFile("song.mp3", Mp3Bytes().Frames(3));
  SetOldTimes();
  const auto before = StatusNow();

  Cut(RepvoltaMP3::FileTimes::kNew);

  EXPECT_EQ(StatusNow().st_ino, before.st_ino);
  EXPECT_EQ(StatusNow().st_mtim.tv_sec, kChange.tv_sec);
}

TEST(RemoveLeadingData, LosesNothingOfAFileWithoutAFrame) {
  TemporaryFolder folder;
  const Mp3Bytes file = Mp3Bytes().Id3v2(Id3v2Bytes().Padding(20)).Garbage(300);
  PutFile("song.mp3", file);

  Cut();

  EXPECT_EQ(GetFile("song.mp3"), Bytes(file));
}

TEST(RemoveLeadingData, KeepsTheTimesWhenAskedTo) {
  TemporaryFolder folder;
  PutFile("song.mp3", Mp3Bytes().Id3v2(Id3v2Bytes()).Frame());
  SetOldTimes();
  chmod("song.mp3", 0640);

  RepvoltaMP3 mp3;
  mp3.SetFileName("song.mp3");
  SetOldTimes();
  mp3.RemoveLeadingData(RepvoltaMP3::FileTimes::kKept);

  EXPECT_EQ(StatusNow().st_atim.tv_sec, kAccess.tv_sec);
  EXPECT_EQ(StatusNow().st_atim.tv_nsec, kAccess.tv_nsec);
  EXPECT_EQ(StatusNow().st_mtim.tv_sec, kChange.tv_sec);
  EXPECT_EQ(StatusNow().st_mtim.tv_nsec, kChange.tv_nsec);
  EXPECT_EQ(StatusNow().st_mode & 0777U, 0640U);
}

TEST(RemoveLeadingData, CutsTheTagAlsoWhereTheDiskSetsNoTimes) {
  TemporaryFolder folder;
  for (const int error : {EPERM, ENOSYS, ENOTSUP}) {
    PutFile("song.mp3", Mp3Bytes().Garbage(17).Frames(3));
    refusalOfTimes = error;
    EXPECT_NO_THROW(Cut()) << error;
    EXPECT_EQ(GetFile("song.mp3"), Bytes(Mp3Bytes().Frames(3)));
  }
  refusalOfTimes = EIO;
  PutFile("song.mp3", Mp3Bytes().Garbage(17).Frames(3));
  EXPECT_THROW(Cut(), FileError);
  refusalOfTimes = 0;
}

TEST(RemoveLeadingData, GivesNewTimesOtherwise) {
  TemporaryFolder folder;
  PutFile("song.mp3", Mp3Bytes().Id3v2(Id3v2Bytes()).Frame());
  SetOldTimes();

  Cut(RepvoltaMP3::FileTimes::kNew);

  EXPECT_GT(StatusNow().st_mtim.tv_sec, kChange.tv_sec);
}

TEST(RemoveLeadingData, KnowsTheFileAsItThenIs) {
  TemporaryFolder folder;
  PutFile("song.mp3", Mp3Bytes().Id3v2(Id3v2Bytes()).Frame());
  RepvoltaMP3 mp3;
  mp3.SetFileName("song.mp3");

  mp3.RemoveLeadingData(RepvoltaMP3::FileTimes::kKept);

  EXPECT_FALSE(mp3.HasID3v2());
  EXPECT_EQ(mp3.Info().headerOffset, 0);
  EXPECT_EQ(mp3.Info().fileLength, 417);
}

TEST(RemoveLeadingData, LeavesTheOldFileWholeOnAFullDisk) {
  TemporaryFolder folder;
  const Mp3Bytes file = Mp3Bytes().Id3v2(Id3v2Bytes()).Frames(5);
  PutFile("song.mp3", file);

  {
    FullDisk disk(1000);
    EXPECT_THROW(Cut(), FileError);
  }

  EXPECT_EQ(GetFile("song.mp3"), Bytes(file));
  EXPECT_EQ(std::distance(fs::directory_iterator("."), fs::directory_iterator()), 1);
}

}  // namespace
}  // namespace repvolta
