#include <filesystem>
#include <gtest/gtest.h>

#include "base/FileError.h"
#include "mp3/RepvoltaMP3.h"

#include "support/Mp3Bytes.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

MP3Info Read(std::span<const Byte> file,
             RepvoltaMP3::EmbeddedTags embedded = RepvoltaMP3::EmbeddedTags::kIgnored) {
  TemporaryFolder folder;
  PutFile("song.mp3", file);
  RepvoltaMP3 mp3(embedded);
  mp3.SetFileName("song.mp3");
  return mp3.Info();
}

TEST(RepvoltaMP3, FindsAFrameAtTheStart) {
  const MP3Info info = Read(Mp3Bytes().Frames(3));
  EXPECT_TRUE(info.valid);
  EXPECT_EQ(info.headerOffset, 0);
  EXPECT_EQ(info.fileLength, 3 * 417);
  EXPECT_EQ(info.bitRate, 128);
}

TEST(RepvoltaMP3, CountsTheAudioOfAConstantBitRate) {
  const Mp3Bytes file = Mp3Bytes().Frames(200).Id3v1("Title");
  const MP3Info info = Read(file);
  const int audio = static_cast<int>(file.Size()) - 1 - 128;
  EXPECT_EQ(info.audioBytes, audio);
  EXPECT_EQ(info.frameCount, audio / 417);
  EXPECT_EQ(info.playTime, audio * 8 / 1000 / 128);
  EXPECT_EQ(info.playTime, 5);
}

TEST(RepvoltaMP3, CutsTheTimeAtEachStep) {
  // 31999 bits count as 31 kbit, which is less than a second at 32 kbit/s.
  const FrameFields slow{.bitRate = 1};
  EXPECT_EQ(Read(Mp3Bytes().Frame(slow, 4000)).playTime, 0);
  EXPECT_EQ(Read(Mp3Bytes().Frame(slow, 4001)).playTime, 1);
}

TEST(RepvoltaMP3, SkipsGarbageBeforeTheFirstFrame) {
  EXPECT_EQ(Read(Mp3Bytes().Garbage(17).Frame()).headerOffset, 17);
}

TEST(RepvoltaMP3, SkipsCandidatesThatAreNoFrames) {
  const Mp3Bytes file = Mp3Bytes()
                            .Frame({.sampleRate = 3}, 10)
                            .Frame({.bitRate = 0}, 10)
                            .Frame({.bitRate = 15}, 10)
                            .Raw("\xFF")
                            .Frame();
  EXPECT_EQ(Read(file).headerOffset, 31);
}

TEST(RepvoltaMP3, FindsNoFrameInTheLastFiveBytes) {
  EXPECT_FALSE(Read(Mp3Bytes().Garbage(100).Frame({}, 5)).valid);
  EXPECT_FALSE(Read(Mp3Bytes().Garbage(100).Frame({}, 4)).valid);
  EXPECT_FALSE(Read(Mp3Bytes().Garbage(100).Frame({}, 6)).valid);
  EXPECT_TRUE(Read(Mp3Bytes().Garbage(100).Frame({}, 7)).valid);
}

TEST(RepvoltaMP3, KnowsNothingOfAFileWithoutAFrame) {
  TemporaryFolder folder;
  PutFile("song.mp3", Mp3Bytes().Id3v2(Id3v2Bytes().Padding(20)).Garbage(300).Id3v1("Title"));
  RepvoltaMP3 mp3;

  mp3.SetFileName("song.mp3");

  EXPECT_EQ(mp3.FileName(), "");
  EXPECT_FALSE(mp3.HasID3v2());
  EXPECT_FALSE(mp3.Info().hasID3v1);
  EXPECT_EQ(mp3.Info().fileLength, 0);
}

TEST(RepvoltaMP3, ReadsTheShortestFiles) {
  for (const std::size_t size : {0U, 1U, 3U, 4U, 5U, 9U, 10U, 127U, 128U, 129U, 137U, 138U, 139U}) {
    EXPECT_FALSE(Read(Mp3Bytes().Garbage(size)).valid) << size;
  }
}

TEST(RepvoltaMP3, ReadsTagsThatAreCutOff) {
  const Bytes tag = Id3v2Bytes(3, 0x10).ClaimSize(0xFFFFFFFF).Build();
  for (std::size_t size = 0; size <= tag.size(); ++size) {
    EXPECT_FALSE(Read(std::span(tag).first(size)).valid) << size;
  }
}

TEST(RepvoltaMP3, LooksForAudioBehindTheTag) {
  const Mp3Bytes file = Mp3Bytes().Id3v2(Id3v2Bytes().Syncsafe().Padding(300)).Frame();
  const MP3Info info = Read(file);
  EXPECT_TRUE(info.hasID3v2);
  EXPECT_EQ(info.id3v2Offset, 0);
  EXPECT_EQ(info.id3v2Size, 310);
  EXPECT_EQ(info.headerOffset, 310);
}

TEST(RepvoltaMP3, TakesNoFrameFromInsideTheTag) {
  const std::string false_frame = "\xFF\xFB\x90\x64";
  const Mp3Bytes file =
      Mp3Bytes().Id3v2(Id3v2Bytes().Syncsafe().Frame("PRIV", false_frame)).Garbage(3).Frame();
  EXPECT_EQ(Read(file).headerOffset, 27);
}

TEST(RepvoltaMP3, CountsTheFooterToTheTag) {
  const Mp3Bytes file =
      Mp3Bytes().Id3v2(Id3v2Bytes(4, 0x10).Syncsafe().Padding(300)).Frame({}, 10).Frame();
  const MP3Info info = Read(file);
  EXPECT_EQ(info.id3v2Size, 320);
  EXPECT_EQ(info.headerOffset, 320);
}

TEST(RepvoltaMP3, ReadsATagOf300KiB) {
  const Mp3Bytes file = Mp3Bytes().Id3v2(Id3v2Bytes().Syncsafe().Padding(300 * 1024)).Frame();
  EXPECT_EQ(Read(file).headerOffset, 300 * 1024 + 10);
}

TEST(RepvoltaMP3, FindsAnAppendedTagByItsFooter) {
  const Id3v2Bytes tag = Id3v2Bytes(4, 0x10).Syncsafe().Padding(50);
  const MP3Info info = Read(Mp3Bytes().Frames(2).Id3v2(tag).Footer(tag));
  EXPECT_TRUE(info.hasID3v2);
  EXPECT_EQ(info.id3v2Offset, 2 * 417);
  EXPECT_EQ(info.id3v2Size, 70);
  EXPECT_EQ(info.headerOffset, 0);
}

TEST(RepvoltaMP3, FindsAnAppendedTagBeforeTheID3v1Tag) {
  const Id3v2Bytes tag = Id3v2Bytes(4, 0x10).Syncsafe().Padding(50);
  const MP3Info info = Read(Mp3Bytes().Frames(2).Id3v2(tag).Footer(tag).Id3v1("Title"));
  EXPECT_TRUE(info.hasID3v2);
  EXPECT_EQ(info.id3v2Offset, 2 * 417);
}

TEST(RepvoltaMP3, AllowsAFooterThatClaimsMoreThanTheFile) {
  const Id3v2Bytes tag = Id3v2Bytes(4, 0).ClaimSize(0x7F7F7F7F);
  const MP3Info info = Read(Mp3Bytes().Frame().Footer(tag));
  EXPECT_EQ(info.id3v2Size, 0x0FFFFFFF + 10);
  EXPECT_EQ(info.id3v2Offset, 427 - (0x0FFFFFFF + 10));
}

TEST(RepvoltaMP3, IgnoresTagsInsideTheAudioUnlessAskedTo) {
  const Mp3Bytes file = Mp3Bytes()
                            .Garbage(40)
                            .Id3v2(Id3v2Bytes().Syncsafe().Frame("PRIV", "\xFF\xFB\x90\x64"))
                            .Frame();

  const MP3Info ignored = Read(file);
  EXPECT_FALSE(ignored.hasID3v2);
  EXPECT_EQ(ignored.headerOffset, 60);

  const MP3Info searched = Read(file, RepvoltaMP3::EmbeddedTags::kSearched);
  EXPECT_TRUE(searched.hasID3v2);
  EXPECT_EQ(searched.id3v2Offset, 40);
  EXPECT_EQ(searched.id3v2Size, 24);
  EXPECT_EQ(searched.headerOffset, 64);
}

TEST(RepvoltaMP3, TakesNoEmbeddedTagWithAnImpossibleHeader) {
  constexpr auto kSearched = RepvoltaMP3::EmbeddedTags::kSearched;
  const auto with = [](const Id3v2Bytes& tag) { return Mp3Bytes().Garbage(40).Id3v2(tag).Frame(); };
  EXPECT_TRUE(Read(with(Id3v2Bytes(254)), kSearched).hasID3v2);
  EXPECT_FALSE(Read(with(Id3v2Bytes(255)), kSearched).hasID3v2);
  EXPECT_FALSE(Read(with(Id3v2Bytes().ClaimSize(0x80)), kSearched).hasID3v2);
  EXPECT_FALSE(Read(with(Id3v2Bytes().ClaimSize(0x80000000)), kSearched).hasID3v2);
}

TEST(RepvoltaMP3, EndsTheSearchAtAnEmbeddedTagLongerThanTheFile) {
  const Mp3Bytes file = Mp3Bytes().Garbage(40).Id3v2(Id3v2Bytes().ClaimSize(0x7F7F7F7F)).Frame();
  EXPECT_FALSE(Read(file, RepvoltaMP3::EmbeddedTags::kSearched).valid);
}

TEST(RepvoltaMP3, ReplacesAllResultsWithEachFile) {
  TemporaryFolder folder;
  PutFile("a.mp3", Mp3Bytes().Id3v2(Id3v2Bytes()).Frame().Xing(1, 10).Id3v1("Title", 7));
  PutFile("b.mp3", Mp3Bytes().Frame(kMpeg2Layer3));
  RepvoltaMP3 mp3;

  mp3.SetFileName("a.mp3");
  mp3.SetFileName("b.mp3");

  EXPECT_FALSE(mp3.Info().hasID3v1 || mp3.Info().hasID3v2 || mp3.Info().vbr);
  EXPECT_EQ(mp3.Info().trackNumber, 0);
  EXPECT_EQ(mp3.FileName(), "b.mp3");
}

TEST(RepvoltaMP3, ReadsAgainOnDemand) {
  TemporaryFolder folder;
  PutFile("song.mp3", Mp3Bytes().Frame());
  RepvoltaMP3 mp3;
  mp3.SetFileName("song.mp3");
  PutFile("song.mp3", Mp3Bytes().Garbage(8).Frame());

  EXPECT_TRUE(mp3.ReadMP3Header());

  EXPECT_EQ(mp3.Info().headerOffset, 8);
}

TEST(RepvoltaMP3, EmptiesItsFileNameOnlyWhenToldTo) {
  TemporaryFolder folder;
  PutFile("song.mp3", Mp3Bytes().Frame());
  RepvoltaMP3 mp3;
  mp3.SetFileName("song.mp3");

  mp3.ResetMP3Info(RepvoltaMP3::AfterReset::kKeepsFileName);
  EXPECT_EQ(mp3.FileName(), "song.mp3");
  EXPECT_EQ(mp3.Info().bitRate, 0);
  EXPECT_EQ(mp3.Info().channelMode, "");

  mp3.ResetMP3Info(RepvoltaMP3::AfterReset::kEmptiesFileName);
  EXPECT_EQ(mp3.FileName(), "");
}

TEST(RepvoltaMP3, RaisesWhatKeepsItFromReading) {
  TemporaryFolder folder;
  fs::create_directory("folder.mp3");
  fs::create_symlink("nowhere", "dangling.mp3");
  for (const char* path : {"missing.mp3", "folder.mp3", "dangling.mp3"}) {
    EXPECT_THROW(RepvoltaMP3().SetFileName(path), FileError) << path;
  }
}

TEST(RepvoltaMP3, RefusesAFileLongerThan31Bits) {
  TemporaryFolder folder;
  PutFile("song.mp3", Mp3Bytes().Frame());
  fs::resize_file("song.mp3", std::uintmax_t{1} << 31);
  EXPECT_THROW(RepvoltaMP3().SetFileName("song.mp3"), std::overflow_error);
}

TEST(RepvoltaMP3, RefusesAudioWhoseBitsDoNotFit31Bits) {
  TemporaryFolder folder;
  PutFile("song.mp3", Mp3Bytes().Frame());
  fs::resize_file("song.mp3", 268435456);
  RepvoltaMP3 mp3;
  mp3.SetFileName("song.mp3");
  EXPECT_EQ(mp3.PlayTimeSeconds(), 16777);

  fs::resize_file("song.mp3", 268435457);
  EXPECT_THROW(mp3.SetFileName("song.mp3"), std::overflow_error);
}

}  // namespace
}  // namespace repvolta
