#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "mp3/GetPlayTime.h"
#include "mp3/RepvoltaMP3v2.h"
#include "mp3/TagError.h"
#include "update/ProcessMP3tag.h"

#include "fakes/RecordingLog.h"
#include "support/FullDisk.h"
#include "support/Mp3Bytes.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

cMP3ID3v2 TagOf(const std::string& path) {
  cMP3ID3v2 tag;
  tag.SetFileName(path);
  return tag;
}

TEST(ProcessMP3tag, SetsItsFramesInOrder) {
  TemporaryFolder folder;
  PutFile("out/RV001-Instructions.mp3", Mp3Bytes().Frames(3));
  RecordingLog log;

  ProcessMP3tag("out/RV001-Instructions.mp3", "Squats, 3 sets", "Monday.RPV", log);

  const cMP3ID3v2 tag = TagOf("out/RV001-Instructions.mp3");
  EXPECT_THAT(tag.Frames().Identifiers(), ElementsAre("TPE1", "TALB", "TIT2", "TRCK", "WXXX"));
  EXPECT_EQ(tag.Artist(), "Repvolta");
  EXPECT_EQ(tag.Album(), "Monday.RPV");
  EXPECT_EQ(tag.Title(), "RV001- Squats, 3 sets");
  EXPECT_EQ(tag.Track(), "0");
  EXPECT_EQ(tag.UserUrl(), "https://repvolta.example/");
  EXPECT_THAT(log.lines, ElementsAre("RV001-Instructions.mp3  TAG modified OK"));
}

TEST(ProcessMP3tag, WritesThisTagByteForByte) {
  TemporaryFolder folder;
  const Mp3Bytes audio = Mp3Bytes().Frames(3);
  PutFile("RV002-x.mp3", audio);
  RecordingLog log;

  ProcessMP3tag("RV002-x.mp3", "Go", "A.RPV", log);

  const Bytes expected =
      Mp3Bytes()
          .Id3v2(Id3v2Bytes()
                     .Text("TPE1", "Repvolta")
                     .Text("TALB", "A.RPV")
                     .Text("TIT2", "RV002- Go")
                     .Text("TRCK", "0")
                     .Text("WXXX", std::string("\0https://repvolta.example/", 26))
                     .ClaimSize(2048)
                     .Padding(2048 - 114))
          .Raw(audio);
  EXPECT_EQ(GetFile("RV002-x.mp3"), expected);
}

TEST(ProcessMP3tag, TrimsTheAlbum) {
  TemporaryFolder folder;
  PutFile("song.mp3", Mp3Bytes().Frame());
  RecordingLog log;
  ProcessMP3tag("song.mp3", "t", "  My day.RPV ", log);
  EXPECT_EQ(TagOf("song.mp3").Album(), "My day.RPV");
}

TEST(ProcessMP3tag, TakesAShortNameWhole) {
  TemporaryFolder folder;
  PutFile("ab.mp3", Mp3Bytes().Frame());
  RecordingLog log;
  ProcessMP3tag("ab.mp3", "title ", "", log);
  EXPECT_EQ(TagOf("ab.mp3").Title(), "ab title");
}

TEST(ProcessMP3tag, TrimsTheTitle) {
  TemporaryFolder folder;
  PutFile(" ab.mp3", Mp3Bytes().Frame());
  RecordingLog log;
  ProcessMP3tag(" ab.mp3", "", "", log);
  EXPECT_EQ(TagOf(" ab.mp3").Title(), "ab");
}

TEST(ProcessMP3tag, CountsCharactersOfTheNameAndNotBytes) {
  TemporaryFolder folder;
  PutFile("äöüßéèXY.mp3", Mp3Bytes().Frame());
  RecordingLog log;
  ProcessMP3tag("äöüßéèXY.mp3", "t", "", log);
  EXPECT_EQ(TagOf("äöüßéèXY.mp3").Title(), "äöüßéè t");
}

TEST(ProcessMP3tag, RemovesTheOldTag) {
  TemporaryFolder folder;
  const Mp3Bytes audio = Mp3Bytes().Frames(3);
  PutFile("song.mp3",
          Mp3Bytes().Id3v2(Id3v2Bytes().Syncsafe().Text("TCOM", "Old").Padding(5000)).Raw(audio));
  RecordingLog log;

  ProcessMP3tag("song.mp3", "t", "", log);

  EXPECT_EQ(TagOf("song.mp3").Composer(), "");
  EXPECT_EQ(fs::file_size("song.mp3"), 2048 + audio.Size());
  EXPECT_THAT(log.lines, ElementsAre("song.mp3  TAG modified OK"));
}

TEST(ProcessMP3tag, RemovesItsOwnTag) {
  TemporaryFolder folder;
  PutFile("song.mp3", Mp3Bytes().Frames(3));
  RecordingLog log;
  ProcessMP3tag("song.mp3", "first", "A.RPV", log);
  const Bytes once = GetFile("song.mp3");

  ProcessMP3tag("song.mp3", "first", "A.RPV", log);

  EXPECT_EQ(GetFile("song.mp3"), once);
  EXPECT_THAT(log.lines, ElementsAre("song.mp3  TAG modified OK", "song.mp3  TAG modified OK"));
}

TEST(ProcessMP3tag, LeavesAFileWithoutAFrameWholeAndSaysSo) {
  TemporaryFolder folder;
  const Mp3Bytes file = Mp3Bytes().Id3v2(Id3v2Bytes().Text("TCOM", "Old")).Garbage(300);
  PutFile("song.mp3", file);
  RecordingLog log;

  ProcessMP3tag("song.mp3", "t", "", log);

  EXPECT_THAT(log.lines, ElementsAre("ERROR:song.mp3 - MP3v2 TAG could not be removed.",
                                     "song.mp3  TAG modified OK"));
  EXPECT_EQ(TagOf("song.mp3").Composer(), "Old");
  const Bytes now = GetFile("song.mp3");
  EXPECT_TRUE(std::equal(now.end() - 300, now.end(), Bytes(file).end() - 300));
}

TEST(ProcessMP3tag, LogsAMarkerInsideTheAudioAndGoesOn) {
  TemporaryFolder folder;
  PutFile("song.mp3", Mp3Bytes().Frame(kMpeg2Layer3).Raw("ID3").Garbage(500));
  RecordingLog log;

  ProcessMP3tag("song.mp3", "t", "", log);

  EXPECT_THAT(log.lines, ElementsAre("ERROR:song.mp3 - MP3v2 TAG could not be removed.",
                                     "song.mp3  TAG modified OK"));
  EXPECT_EQ(TagOf("song.mp3").Title(), "song t");
}

TEST(ProcessMP3tag, TagsFilesOfAnySize) {
  for (const std::size_t size : {0U, 3U, 128U, 129U}) {
    TemporaryFolder folder;
    PutFile("song.mp3", Mp3Bytes().Garbage(size));
    RecordingLog log;
    ProcessMP3tag("song.mp3", "t", "", log);
    EXPECT_EQ(fs::file_size("song.mp3"), 2048 + size);
    EXPECT_THAT(log.lines, ElementsAre("song.mp3  TAG modified OK"));
  }
}

TEST(ProcessMP3tag, LeavesThePlayTimeAsItWas) {
  TemporaryFolder folder;
  PutFile("song.mp3", Mp3Bytes().Frames(200).Id3v1("Title"));
  const int before = GetPlayTime("song.mp3");
  RecordingLog log;
  ProcessMP3tag("song.mp3", "t", "", log);
  EXPECT_EQ(GetPlayTime("song.mp3"), before);
}

TEST(ProcessMP3tag, WritesNothingAnewBeforeItTagsAnUntaggedFile) {
  TemporaryFolder folder;
  PutFile("song.mp3", Mp3Bytes().Garbage(20).Frames(3));
  RecordingLog log;
  ProcessMP3tag("song.mp3", "t", "", log);
  EXPECT_EQ(fs::file_size("song.mp3"), 2048 + 20 + 3 * 417U) << "the garbage is still there";
}

TEST(ProcessMP3tag, LogsATagThatCouldNotBeCutOffAndRaisesOneThatCouldNotBeWritten) {
  TemporaryFolder folder;
  const Id3v2Bytes appended = Id3v2Bytes(4, 0x10).Syncsafe();
  const Mp3Bytes file = Mp3Bytes().Garbage(9).Frames(5).Id3v2(appended).Footer(appended);
  PutFile("song.mp3", file);
  RecordingLog log;

  {
    FullDisk disk(1000);
    EXPECT_THROW(ProcessMP3tag("song.mp3", "t", "", log), TagError);
  }

  EXPECT_THAT(log.lines, ElementsAre("ERROR:song.mp3 - MP3v2 TAG could not be removed."));
  EXPECT_EQ(GetFile("song.mp3"), Bytes(file));
}

TEST(ProcessMP3tag, RaisesAMissingFile) {
  TemporaryFolder folder;
  RecordingLog log;
  EXPECT_THROW(ProcessMP3tag("gone.mp3", "t", "", log), FileError);
  EXPECT_THAT(log.lines, ElementsAre());
}

}  // namespace
}  // namespace repvolta
