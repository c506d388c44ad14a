#include <gtest/gtest.h>

#include "base/FileError.h"
#include "mp3/MiddleFrames.h"

#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

/// A frame of MPEG-1 Layer III with 128 kbit/s at 44.1 kHz, filled with `content`.
std::string Frame(char content, const std::string& header = "\xFF\xFB\x90\x40") {
  return header + std::string(417 - 4, content);
}

/// 26 ms for each letter.
std::string Song(const std::string& letters) {
  std::string song;
  for (const char letter : letters) song += Frame(letter);
  return song;
}

constexpr double kTwoFrames = 0.053;

/// The letters of the frames that were taken.
std::string Taken(const std::string& file, double seconds = kTwoFrames) {
  PutFile("song.mp3", file);
  const FramesOfSong song = MiddleFrames("song.mp3", seconds);
  std::string letters;
  for (std::size_t i = 4; i < song.bytes.size(); i += 417) {
    letters += static_cast<char>(song.bytes[i]);
  }
  return letters;
}

TEST(MiddleFrames, AreThoseInTheMiddle) {
  TemporaryFolder folder;
  EXPECT_EQ(Taken(Song("abcdef")), "cd");
  const FramesOfSong song = MiddleFrames("song.mp3", kTwoFrames);
  EXPECT_EQ(song.rate, 44100U);
  EXPECT_EQ(song.channels, 2);
}

TEST(MiddleFrames, AreAllOfAShortSong) {
  TemporaryFolder folder;
  EXPECT_EQ(Taken(Song("abc"), 30), "abc");
}

TEST(MiddleFrames, AreFoundBehindOtherBytes) {
  TemporaryFolder folder;
  EXPECT_EQ(Taken("\xFF\xFB junk \xFF" + Song("abcdef")), "cd");
  EXPECT_EQ(Taken(Song("abc") + "junk" + Song("def")), "cd");
  EXPECT_EQ(Taken(Song("abcdef") + "TAG" + std::string(125, '\xFF')), "cd");
}

TEST(MiddleFrames, AreOfOneKind) {
  TemporaryFolder folder;
  const std::string mono = "\xFF\xFB\x90\xC0";
  EXPECT_EQ(Taken(Song("abcd") + Frame('x', mono) + Frame('y', mono) + Frame('z', mono), 30),
            "abcd");
}

TEST(MiddleFrames, SayWhatTheyAre) {
  TemporaryFolder folder;
  // MPEG-2, 64 kbit/s at 16 kHz, one channel: 288 bytes.
  std::string song;
  for (int i = 0; i < 4; ++i) song += std::string("\xFF\xF3\x88\xC0", 4) + std::string(284, 'a');
  PutFile("song.mp3", song);
  const FramesOfSong frames = MiddleFrames("song.mp3", 30);
  EXPECT_EQ(frames.bytes.size(), song.size());
  EXPECT_EQ(frames.rate, 16000U);
  EXPECT_EQ(frames.channels, 1);
}

TEST(MiddleFrames, AreNoneWhereThereAreNone) {
  TemporaryFolder folder;
  EXPECT_EQ(Taken(""), "");
  EXPECT_EQ(Taken("\xFF\xFB"), "");
  EXPECT_EQ(Taken(std::string(100000, '\xFF')), "");
  EXPECT_EQ(Taken(Song("a").substr(0, 400)), "");
  EXPECT_THROW(MiddleFrames("gone.mp3", 1), FileError);
}

TEST(MiddleFrames, SkipATagThatIsLargerThanTheSong) {
  TemporaryFolder folder;
  const std::string tag = std::string("ID3\3\0\0\0\0\x40\0", 10) + Song(std::string(19, 'x'));
  EXPECT_EQ(Taken(tag + std::string(8192 - 19 * 417, 'p') + Song("abcdef")), "cd");
}

}  // namespace
}  // namespace repvolta
