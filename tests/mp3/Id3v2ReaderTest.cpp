#include <gtest/gtest.h>
#include <random>

#include "mp3/Id3v2Reader.h"

#include "support/Mp3Bytes.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

/// The rule for finding a tag, in pieces of 4096 bytes, each of which starts 3 bytes before the end
/// of the previous one. Returns the position just past the marker, or 0.
std::int32_t PositionByPieces(std::string_view file) {
  constexpr std::size_t kPiece = 4096;
  for (std::size_t start = 0; start < file.size(); start += kPiece - 3) {
    const std::string_view piece = file.substr(start, kPiece);
    const std::size_t marker = piece.find("ID3");
    const std::size_t audio = piece.find("\xFF\xFB");
    if (marker < audio) return static_cast<std::int32_t>(start + marker + 4);
    if (audio != std::string_view::npos) return 0;
  }
  return 0;
}

void ExpectTheSamePlace(const std::string& content) {
  PutFile("song.mp3", content);
  const File file = File::Open("song.mp3", File::Access::kRead);
  EXPECT_EQ(LocateId3v2(file).position, PositionByPieces(content));
}

/// A file of filler with a few markers, audio starts and bytes that resemble them.
std::string HardContent(std::mt19937& random) {
  constexpr std::string_view kPieces[] = {"ID3",  "\xFF\xFB", "ID",       "I",  "D3",
                                          "\xFF", "\xFB",     "\xFF\xFF", "II", "ID\xFF\xFB"};
  std::string content(random() % 13000, '.');
  for (int i = static_cast<int>(random() % 6); i > 0 && content.size() > 4; --i) {
    const std::string_view piece = kPieces[random() % std::size(kPieces)];
    const std::size_t nearEnd = 4096 * (1 + random() % 3) - 10 + random() % 14;
    const std::size_t place = random() % 2 == 0 ? nearEnd : random() % content.size();
    if (place + piece.size() <= content.size()) content.replace(place, piece.size(), piece);
  }
  return content;
}

TEST(LocateId3v2, AgreesWithTheRuleByPieces) {
  TemporaryFolder folder;
  std::mt19937 random(3);
  for (int round = 0; round < 3000; ++round) ExpectTheSamePlace(HardContent(random));
}

TEST(LocateId3v2, AgreesWithTheRuleOnDenseMarkers) {
  TemporaryFolder folder;
  std::mt19937 random(4);
  for (int round = 0; round < 1000; ++round) {
    std::string content(random() % 12, '.');
    for (char& byte : content) byte = "ID3\xFF\xFB"[random() % 5];
    ExpectTheSamePlace(content);
  }
}

TEST(HasId3v2Behind, LooksOnlyBehindTheOffset) {
  TemporaryFolder folder;
  PutFile("song.mp3", "..ID3..ID3..\xFF\xFB..ID3");
  const File file = File::Open("song.mp3", File::Access::kRead);
  EXPECT_TRUE(HasId3v2Behind(file, 0));
  EXPECT_TRUE(HasId3v2Behind(file, 7));
  EXPECT_FALSE(HasId3v2Behind(file, 8));
  EXPECT_TRUE(HasId3v2Behind(file, 13));
  EXPECT_FALSE(HasId3v2Behind(file, 100));
}

TEST(LocateId3v2, TellsTheVersionAndSizeOfItsHeader) {
  TemporaryFolder folder;
  PutFile("song.mp3", Mp3Bytes().Garbage(5).Id3v2(Id3v2Bytes(4).ClaimSize(0x1234)));
  const Id3v2Place place = LocateId3v2(File::Open("song.mp3", File::Access::kRead));
  EXPECT_EQ(place.position, 5 + 4);
  EXPECT_EQ(place.Offset(), 5U);
  EXPECT_EQ(place.version, 4);
  EXPECT_EQ(place.size, 0x1234);
}

TEST(LocateId3v2, TellsNoSizeOfAVersionThatIsNotRead) {
  TemporaryFolder folder;
  PutFile("song.mp3", Id3v2Bytes(5).Text("TIT2", "Squats").Build());
  const Id3v2Place place = LocateId3v2(File::Open("song.mp3", File::Access::kRead));
  EXPECT_EQ(place.version, 5);
  EXPECT_EQ(place.size, 0);
}

TEST(ReadId3v2Frames, ReadsTheFramesAtTheirPlace) {
  TemporaryFolder folder;
  PutFile("song.mp3",
          Mp3Bytes().Garbage(5).Id3v2(Id3v2Bytes(2).Text("TT2", "Squats").Text("XYZ", "kept")));
  const File file = File::Open("song.mp3", File::Access::kRead);
  const Id3v2Frames frames = ReadId3v2Frames(file, LocateId3v2(file));
  EXPECT_EQ(frames.Text("TIT2", 1), "Squats");
  EXPECT_EQ(frames.Text("XYZ", 1), "kept");
}

TEST(ReadId3v2Frames, ReadsNoneWithoutATag) {
  TemporaryFolder folder;
  PutFile("song.mp3", Mp3Bytes().Frame());
  const File file = File::Open("song.mp3", File::Access::kRead);
  EXPECT_EQ(ReadId3v2Frames(file, LocateId3v2(file)).Identifiers().size(), 0U);
}

}  // namespace
}  // namespace repvolta
