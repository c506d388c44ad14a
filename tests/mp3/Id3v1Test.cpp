#include <gtest/gtest.h>

#include "mp3/RepvoltaMP3.h"

#include "support/Mp3Bytes.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

MP3Info Read(std::span<const Byte> file) {
  TemporaryFolder folder;
  PutFile("song.mp3", file);
  RepvoltaMP3 mp3;
  mp3.SetFileName("song.mp3");
  return mp3.Info();
}

std::string Padded(std::string_view text, std::size_t size) {
  std::string padded(text);
  padded.resize(size);
  return padded;
}

TEST(Id3v1, IsReadFieldByField) {
  const std::string tag = "TAG" + Padded("Title", 30) + Padded("Artist ", 30) +
                          Padded("Album", 30) + "1987" + Padded("Comment", 30) + "\x11";
  const MP3Info info = Read(Mp3Bytes().Frame().Raw(tag));
  ASSERT_TRUE(info.hasID3v1);
  EXPECT_EQ(std::string(info.id3v1.title, 30), Padded("Title", 30));
  EXPECT_EQ(std::string(info.id3v1.artist, 30), Padded("Artist ", 30));
  EXPECT_EQ(std::string(info.id3v1.album, 30), Padded("Album", 30));
  EXPECT_EQ(std::string(info.id3v1.year, 4), "1987");
  EXPECT_EQ(std::string(info.id3v1.comment, 30), Padded("Comment", 30));
  EXPECT_EQ(info.id3v1.genre, 17);
}

TEST(Id3v1, IsAnEmptyTagWhereThereIsNone) {
  const MP3Info info = Read(Mp3Bytes().Frame());
  EXPECT_FALSE(info.hasID3v1);
  EXPECT_EQ(info.id3v1, Id3v1Record());
  EXPECT_EQ(std::string(info.id3v1.identifier, 3), "TAG");
  EXPECT_EQ(info.id3v1.title[0], 0);
}

TEST(Id3v1, IsNotLookedForInAFileOf128Bytes) {
  // The frame inside the tag is needed, because a file without a frame is not read.
  std::string tag = "TAG" + std::string("\xFF\xFB\x90\x64");
  tag.resize(128);
  EXPECT_FALSE(Read(AsBytes(tag)).hasID3v1);
  EXPECT_TRUE(Read(AsBytes("x" + tag)).hasID3v1);
}

TEST(Id3v1, HasATrackNumberBehindAZeroByte) {
  const MP3Info info = Read(Mp3Bytes().Frame().Id3v1("Title", 7));
  EXPECT_TRUE(info.hasTrackNumber);
  EXPECT_EQ(info.trackNumber, 7);
  EXPECT_EQ(Read(Mp3Bytes().Frame().Id3v1("Title", 200)).trackNumber, 200);
}

TEST(Id3v1, HasNoTrackNumberZero) {
  const MP3Info info = Read(Mp3Bytes().Frame().Id3v1("Title", 0));
  EXPECT_TRUE(info.hasID3v1);
  EXPECT_FALSE(info.hasTrackNumber);
}

TEST(Id3v1, HasNoTrackNumberInALongComment) {
  const std::string tag = "TAG" + std::string(94, ' ') + std::string(30, 'c') + "\x01";
  const MP3Info info = Read(Mp3Bytes().Frame().Raw(tag));
  EXPECT_TRUE(info.hasID3v1);
  EXPECT_FALSE(info.hasTrackNumber);
  EXPECT_EQ(info.trackNumber, 0);
}

TEST(Id3v1, CountsFramesInsideItAsNegativeAudio) {
  const std::string tag = "TAG" + std::string("\xFF\xFB\x90\x64") + std::string(121, '\0');
  const MP3Info info = Read(Mp3Bytes().Garbage(10).Raw(tag));
  EXPECT_EQ(info.audioBytes, 138 - 14 - 128);
  EXPECT_EQ(info.playTime, 0);
}

}  // namespace
}  // namespace repvolta
