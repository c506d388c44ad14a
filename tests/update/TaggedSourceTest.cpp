#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "update/TaggedSource.h"

#include "fakes/RecordingLog.h"
#include "support/FullDisk.h"
#include "support/SongBytes.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kPath = "/player/Monday/RV002-Song?.mp3";

/// A song with a tag behind its first frames, which stays.
Bytes OddSong() {
  constexpr FrameFields kWithCrc{.protection = 0};
  return Mp3Bytes().Frames(3, kWithCrc).Id3v2(Id3v2Bytes().Frame("TIT2", "Old")).Frames(3);
}

/// The copy that results.
Bytes Written(const TaggedSource& source) {
  CopyFileOver(source.FileToCopy(), "written", source.Start());
  return GetFile("written");
}

TEST(TaggedSource, NeedsNoWorkingFileForMostSongs) {
  TemporaryFolder folder;
  PutFile("song.mp3", SongBytes(3));
  const TaggedSource source("song.mp3", "working", kPath, {"Squat", "Monday.RPV"});
  EXPECT_EQ(source.FileToCopy(), "song.mp3");
  EXPECT_FALSE(fs::exists("working"));
  RecordingLog log;
  EXPECT_EQ(source.Log("RV002-Song_.mp3", log), std::nullopt);
  EXPECT_THAT(log.lines, ElementsAre("RV002-Song_.mp3  TAG modified OK"));
}

TEST(TaggedSource, IsWhatCopyingAndTaggingMakesOfAnOddSong) {
  TemporaryFolder folder;
  PutFile("song.mp3", OddSong());
  PutFile("RV002-Song?.mp3", OddSong());
  RecordingLog steps;
  ProcessMP3tag("RV002-Song?.mp3", "Squat", "Monday.RPV", steps);
  ASSERT_EQ(steps.lines.size(), 2U);

  const TaggedSource source("song.mp3", "working", kPath, {"Squat", "Monday.RPV"});

  EXPECT_EQ(source.FileToCopy(), "working");
  EXPECT_EQ(Written(source), GetFile("RV002-Song?.mp3"));
  EXPECT_EQ(GetFile("song.mp3"), OddSong());
  RecordingLog log;
  EXPECT_EQ(source.Log("RV002-Song?.mp3", log), std::nullopt);
  EXPECT_EQ(log.lines, steps.lines);
}

TEST(TaggedSource, IsTheSourceAsItIsWhereThereIsNoRoomForTheWorkingFile) {
  TemporaryFolder folder;
  PutFile("song.mp3", OddSong());
  const TaggedSource source = [] {
    const FullDisk full(100);
    return TaggedSource("song.mp3", "working", kPath, {"Squat", "Monday.RPV"});
  }();
  EXPECT_EQ(Written(source), OddSong());
  RecordingLog log;
  EXPECT_THAT(source.Log("RV002-Song_.mp3", log).value(),
              HasSubstr("/player/Monday/RV002-Song_.mp3 could not be written: File too large"));
  EXPECT_THAT(log.lines, IsEmpty());
}

}  // namespace
}  // namespace repvolta
