#include <filesystem>
#include <gtest/gtest.h>

#include "mp3/RepvoltaMP3v2.h"
#include "mp3/TagError.h"

#include "support/FailingClose.h"
#include "support/FullDisk.h"
#include "support/Mp3Bytes.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

/// The file after its title was set and the tag written.
Bytes WithTitle(std::span<const Byte> file, std::string_view title) {
  TemporaryFolder folder;
  PutFile("song.mp3", file);
  cMP3ID3v2 tag;
  tag.SetFileName("song.mp3");
  tag.SetTitle(title);
  tag.WriteTag();
  EXPECT_EQ(std::distance(fs::directory_iterator("."), fs::directory_iterator()), 1);
  return GetFile("song.mp3");
}

cMP3ID3v2 Reread(std::span<const Byte> file) {
  TemporaryFolder folder;
  PutFile("song.mp3", file);
  cMP3ID3v2 tag;
  tag.SetFileName("song.mp3");
  return tag;
}

/// The size of a title that makes the written tag `size` bytes long.
std::string TitleForTagOf(std::size_t size) { return std::string(size - 10 - 11, 't'); }

std::uint32_t SizeField(std::span<const Byte> file) { return LoadBigEndian32(file.subspan(6)); }

TEST(WriteTag, WritesEachByteAsItMust) {
  TemporaryFolder folder;
  const Mp3Bytes audio = Mp3Bytes().Frames(2);
  PutFile("song.mp3", audio);
  cMP3ID3v2 tag;
  tag.SetFileName("song.mp3");
  tag.SetTitle("Café");
  tag.SetUserUrl("https://a.example/");
  tag.WriteTag();

  std::string expected("ID3\x03\0\0\0\0\x08\0", 10);
  expected += std::string("TIT2\0\0\0\x05\0\0\0Caf\xE9", 15);
  expected += std::string("WXXX\0\0\0\x14\0\0\0\0https://a.example/", 30);
  expected.resize(2048);
  EXPECT_EQ(GetTextFile("song.mp3"), expected + AsText(audio));
}

TEST(WriteTag, AddsAtLeast2048BytesToAnUntaggedFile) {
  for (const std::size_t size : {0U, 3U, 128U, 129U, 2048U, 5000U}) {
    const Mp3Bytes file = Mp3Bytes().Garbage(size);
    const Bytes tagged = WithTitle(file, "t");
    ASSERT_EQ(tagged.size(), size + 2048);
    EXPECT_EQ(Bytes(tagged.begin() + 2048, tagged.end()), Bytes(file));
  }
}

TEST(WriteTag, FailsWhereTheCloseCallsTheTagUnwritten) {
  TemporaryFolder folder;
  PutFile("song.mp3", WithTitle(Mp3Bytes().Frames(2), "old"));
  cMP3ID3v2 tag;
  tag.SetFileName("song.mp3");
  tag.SetTitle("new");
  const FailingClose unwritten("song.mp3");
  EXPECT_THROW(tag.WriteTag(), TagError);
}

TEST(WriteTag, AlwaysRoundsUpPastTheNextStep) {
  const Mp3Bytes audio = Mp3Bytes().Frame();
  EXPECT_EQ(SizeField(WithTitle(audio, TitleForTagOf(2047))), 2048U);
  EXPECT_EQ(SizeField(WithTitle(audio, TitleForTagOf(2048))), 4096U);
  EXPECT_EQ(SizeField(WithTitle(audio, TitleForTagOf(2049))), 4096U);
  EXPECT_EQ(WithTitle(audio, TitleForTagOf(2048)).size(), 4096U + audio.Size());
}

TEST(WriteTag, WritesQuestionMarksForWhatTheCodePageLacks) {
  const Bytes tagged = WithTitle(Mp3Bytes().Frame(), "東京 é");
  EXPECT_EQ(AsText(std::span(tagged).subspan(21, 4)), "?? \xE9");
}

TEST(WriteTag, GrowsATagThatIsTooSmall) {
  const Mp3Bytes file = Mp3Bytes().Id3v2(Id3v2Bytes().Text("TIT2", "old").Padding(86)).Frames(2);
  const Bytes tagged = WithTitle(file, TitleForTagOf(500));
  ASSERT_EQ(tagged.size(), file.Size() + 2048 - 100);
  EXPECT_EQ(SizeField(tagged), 2048U);
  EXPECT_EQ(Bytes(tagged.begin() + 1948, tagged.end()), Bytes(file)) << "the old tag and the audio";
}

TEST(WriteTag, GrowsATagOfExactlyItsSize) {
  const Mp3Bytes file = Mp3Bytes().Id3v2(Id3v2Bytes().Padding(290).ClaimSize(300)).Frames(2);
  EXPECT_EQ(WithTitle(file, TitleForTagOf(300)).size(), file.Size() + 2048 - 300);
  EXPECT_EQ(WithTitle(file, TitleForTagOf(299)).size(), file.Size());
}

TEST(WriteTag, OverlapsTheOldTagWhenItGrowsBeyondTheRoom) {
  const Mp3Bytes audio = Mp3Bytes().Frames(2);
  const Bytes first = WithTitle(audio, TitleForTagOf(2044));
  const Bytes second = WithTitle(first, TitleForTagOf(3000));
  ASSERT_EQ(second.size(), 4096 + audio.Size());
  EXPECT_EQ(Bytes(second.begin() + 4096, second.end()), Bytes(audio));
  EXPECT_EQ(Reread(second).Title(), std::string(2979, 't'));
  EXPECT_EQ(Reread(second).Frames().Identifiers(), std::vector<std::string>{"TIT2"});
}

TEST(WriteTag, WritesOverALargerTagInItsPlace) {
  const Mp3Bytes audio = Mp3Bytes().Frames(2);
  const Bytes first = WithTitle(audio, "a longer title than the next");
  const Bytes second = WithTitle(first, "short");
  ASSERT_EQ(second.size(), first.size());
  EXPECT_EQ(SizeField(second), 2048U);
  EXPECT_EQ(Reread(second).Title(), "short");
  EXPECT_EQ(Bytes(second.begin() + 2048, second.end()), Bytes(audio));
}

TEST(WriteTag, WritesOverTheTagWhereItStands) {
  const Mp3Bytes file = Mp3Bytes().Garbage(50).Id3v2(Id3v2Bytes().Padding(990)).Frames(2);
  const Bytes tagged = WithTitle(file, "t");
  ASSERT_EQ(tagged.size(), file.Size());
  EXPECT_TRUE(std::equal(tagged.begin(), tagged.begin() + 50, Bytes(file).begin()));
  EXPECT_EQ(AsText(std::span(tagged).subspan(50, 3)), "ID3");
  EXPECT_EQ(SizeField(std::span(tagged).subspan(50)), 990U);
}

TEST(WriteTag, LeavesNoOldFrameReadableBehindTheNew) {
  Id3v2Bytes old;
  old.Text("TIT2", "a").Text("TALB", "b").Text("TPE1", "c");
  for (std::size_t length = 0; length < 40; ++length) {
    TemporaryFolder folder;
    PutFile("song.mp3", Mp3Bytes().Id3v2(Id3v2Bytes(old).Padding(1000)).Frame());
    cMP3ID3v2 tag;
    tag.SetFileName("song.mp3");
    cMP3ID3v2 fresh;
    PutFile("other.mp3", Mp3Bytes().Frame());
    fresh.SetFileName("other.mp3");
    fresh.SetTitle(std::string(length, 't'));
    fs::rename("song.mp3", "other.mp3");
    fresh.WriteTag();
    EXPECT_EQ(Reread(GetFile("other.mp3")).Frames().Identifiers(),
              std::vector<std::string>{"TIT2"});
  }
}

/// Audio after a tag of the claimed size, whose only frame ends far after the tag and so is not
/// read.
Mp3Bytes SongWithClaimedTag(std::uint32_t size) {
  return Mp3Bytes()
      .Id3v2(Id3v2Bytes().ClaimSize(size).Text("TALB", std::string(2100, 'b')))
      .Frame();
}

TEST(WriteTag, LeavesWhatStandsBehindATagThatGrewOverTheOldAsItIs) {
  constexpr std::size_t kRoom = 30;
  const Mp3Bytes file = SongWithClaimedTag(2048 - kRoom);
  for (const std::size_t size : {2018U, 2019U, 2046U, 2047U}) {
    const Bytes tagged = WithTitle(file, TitleForTagOf(size));
    ASSERT_EQ(tagged.size(), file.Size() + kRoom);
    EXPECT_TRUE(std::ranges::equal(std::span(tagged).subspan(size),
                                   std::span<const Byte>(file).subspan(size - kRoom)))
        << size;
  }
}

TEST(WriteTag, EndsTheFramesOfATagThatStaysWithTenZerosAndLeavesTheRest) {
  const Mp3Bytes file = SongWithClaimedTag(500);
  const Bytes tagged = WithTitle(file, TitleForTagOf(100));
  ASSERT_EQ(tagged.size(), file.Size());
  EXPECT_EQ(AsText(std::span(tagged).subspan(100, 10)), std::string(10, '\0'));
  EXPECT_TRUE(
      std::ranges::equal(std::span(tagged).subspan(110), std::span<const Byte>(file).subspan(110)));
}

TEST(WriteTag, TouchesNoAudioBehindATagItFills) {
  const Mp3Bytes audio = Mp3Bytes().Frames(2);
  const Mp3Bytes file = Mp3Bytes().Id3v2(Id3v2Bytes().Padding(290).ClaimSize(300)).Raw(audio);
  const Bytes tagged = WithTitle(file, TitleForTagOf(299));
  EXPECT_EQ(Bytes(tagged.begin() + 300, tagged.end()), Bytes(audio));
}

TEST(WriteTag, LosesNothingByATagOfNegativeSize) {
  for (const std::uint32_t size : {0x80000000U, 0x80000100U, 0xFFFFFFFFU}) {
    const Mp3Bytes file = Mp3Bytes().Id3v2(Id3v2Bytes().ClaimSize(size)).Frames(2);
    const Bytes tagged = WithTitle(file, "t");
    ASSERT_EQ(tagged.size(), file.Size() + 2048);
    EXPECT_EQ(Bytes(tagged.begin() + 2048, tagged.end()), Bytes(file));
  }
}

TEST(WriteTag, LosesNothingByATagOfUnknownVersion) {
  const Mp3Bytes file = Mp3Bytes().Id3v2(Id3v2Bytes(9).Padding(5000)).Frames(2);
  const Bytes tagged = WithTitle(file, "t");
  ASSERT_EQ(tagged.size(), file.Size() + 2048);
  EXPECT_EQ(Bytes(tagged.begin() + 2048, tagged.end()), Bytes(file));
}

TEST(WriteTag, KeepsAllOtherFramesInTheirOrder) {
  const Id3v2Bytes old =
      Id3v2Bytes().Text("COMM", "one").Text("TIT2", "old").Text("XYZW", "kept").Text("COMM", "two");
  const cMP3ID3v2 tag = Reread(WithTitle(Mp3Bytes().Id3v2(old).Frame(), "new"));
  EXPECT_EQ(tag.Frames().Identifiers(), (std::vector<std::string>{"COMM", "TIT2", "XYZW"}));
  EXPECT_EQ(tag.Comment(), "one\r\ntwo");
  EXPECT_EQ(tag.Title(), "new");
  EXPECT_EQ(tag.Frames().Text("XYZW", 1), "kept");
}

TEST(WriteTag, ReplacesAllFramesOfAnIdentifier) {
  const Id3v2Bytes old = Id3v2Bytes().Text("TIT2", "one").Text("TIT2", "two");
  const cMP3ID3v2 tag = Reread(WithTitle(Mp3Bytes().Id3v2(old).Frame(), "new"));
  EXPECT_EQ(tag.Frames().Count("TIT2"), 1U);
}

TEST(WriteTag, SkipsFramesThatAreNamedLikeATag) {
  const Id3v2Bytes old = Id3v2Bytes().Text("XID3", "x").Text("ID3Z", "y").Text("TALB", "kept");
  const cMP3ID3v2 tag = Reread(WithTitle(Mp3Bytes().Id3v2(old).Frame(), "new"));
  EXPECT_EQ(tag.Frames().Identifiers(), (std::vector<std::string>{"TALB", "TIT2"}));
}

TEST(WriteTag, FillsUpAShortIdentifier) {
  const Id3v2Bytes old = Id3v2Bytes(2).Text("TCM", "x").Text("TAL", "album");
  const cMP3ID3v2 tag = Reread(WithTitle(Mp3Bytes().Id3v2(old).Frame(), "new"));
  EXPECT_EQ(tag.Album(), "album");
  EXPECT_EQ(tag.Frames().Text(std::string("TCM\0", 4), 1), "x");
}

TEST(WriteTag, GivesBackEveryByteOfAFrame) {
  std::string data;
  for (int byte = 1; byte < 256; ++byte) data += static_cast<char>(byte);
  const Bytes tagged = WithTitle(Mp3Bytes().Id3v2(Id3v2Bytes().Text("PRIV", data)).Frame(), "t");
  EXPECT_EQ(AsText(std::span(tagged).subspan(21, 255)), data);
}

TEST(WriteTag, CutsNoTextAtAZeroByte) {
  TemporaryFolder folder;
  PutFile("song.mp3", Mp3Bytes().Frame());
  cMP3ID3v2 tag;
  tag.SetFileName("song.mp3");
  tag.SetUserUrl("x");
  EXPECT_EQ(tag.UserUrl(), "x");
  EXPECT_EQ(tag.Frames().Text("WXXX", 1), std::string("\0x", 2));
}

TEST(WriteTag, LeavesTheOldFileWholeOnAFullDisk) {
  TemporaryFolder folder;
  const Mp3Bytes file = Mp3Bytes().Frames(5);
  PutFile("song.mp3", file);
  cMP3ID3v2 tag;
  tag.SetFileName("song.mp3");

  std::string source;
  try {
    FullDisk disk(3000);
    tag.WriteTag();
  } catch (const TagError& error) {
    source = error.Source();
  }

  EXPECT_EQ(source, "tests_mp3.cMP3ID3v2");
  EXPECT_EQ(GetFile("song.mp3"), Bytes(file));
  EXPECT_EQ(std::distance(fs::directory_iterator("."), fs::directory_iterator()), 1);
}

}  // namespace
}  // namespace repvolta
