#include <filesystem>
#include <gtest/gtest.h>

#include "update/RandomMusicList.h"

#include "fakes/FakeServices.h"
#include "support/SongBytes.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

TEST(CountRandomMusicFiles, CountsLines) {
  TemporaryFolder folder;
  ProgramState state;
  PutFile("musiclist.txt", "a.mp3\r\nb.mp3\r\n\r\n");
  CountRandomMusicFiles(state);
  EXPECT_EQ(state.RandomMusicFiles, 3);
}

TEST(CountRandomMusicFiles, IsZeroWithoutAList) {
  TemporaryFolder folder;
  ProgramState state;
  state.RandomMusicFiles = 7;
  CountRandomMusicFiles(state);
  EXPECT_EQ(state.RandomMusicFiles, 0);
}

/// A list of three songs of 10, 20 and 30 seconds.
class Draw : public testing::Test {
 protected:
  Draw() {
    std::string list;
    for (const int seconds : {10, 20, 30}) {
      const std::string path = folder.Path() + std::to_string(seconds) + ".mp3";
      PutFile(path, SongBytes(seconds));
      list += path + "\r\n";
    }
    PutFile("musiclist.txt", list);
  }

  std::string Path(const std::string& name) const { return folder.Path() + name; }

  TemporaryFolder folder;
};

TEST_F(Draw, TakesTheLineThatTheNumberSays) {
  ScriptedNumbers random({0.7});
  EXPECT_EQ(GetRandomMusicFile(3, 0, 100, random), Path("30.mp3"));
  EXPECT_EQ(random.seeded, 1);
}

TEST_F(Draw, SeedsItsNumbersEachTime) {
  ScriptedNumbers random;
  GetRandomMusicFile(3, 0, 100, random);
  GetRandomMusicFile(3, 0, 100, random);
  EXPECT_EQ(random.seeded, 2);
}

TEST_F(Draw, TriesAgainUntilTheTimeIsInRange) {
  ScriptedNumbers random({0.0, 0.99, 0.34});
  EXPECT_EQ(GetRandomMusicFile(3, 15, 25, random), Path("20.mp3"));
}

TEST_F(Draw, CountsTheEndsOfTheRangeIn) {
  ScriptedNumbers random({0.0});
  EXPECT_EQ(GetRandomMusicFile(3, 10, 10, random), Path("10.mp3"));
}

TEST_F(Draw, TakesNoSongThatIsTooLongForAnyRange) {
  // The whole file is one frame with 4000 bytes a second.
  fs::resize_file("10.mp3", std::uintmax_t{4000} * 32768 + 100);
  ScriptedNumbers random({0.0});
  EXPECT_EQ(GetRandomMusicFile(3, 0, 32767, random), "");
  fs::resize_file("10.mp3", std::uintmax_t{4000} * 32767 + 100);
  EXPECT_EQ(GetRandomMusicFile(3, 0, 32767, random), Path("10.mp3"));
}

TEST_F(Draw, FindsTheOnlyFittingSongOfThreeNearlyAlways) {
  TimerSeededNumbers random;
  for (int i = 0; i < 20; ++i) EXPECT_EQ(GetRandomMusicFile(3, 15, 25, random), Path("20.mp3"));
}

TEST_F(Draw, GivesUpAfterAHundredAndOneAttempts) {
  std::vector<double> numbers(101, 0.0);
  numbers[100] = 0.5;
  ScriptedNumbers lastOne(numbers);
  EXPECT_EQ(GetRandomMusicFile(3, 15, 25, lastOne), Path("20.mp3"));

  numbers[100] = 0.0;
  numbers.push_back(0.5);
  ScriptedNumbers oneTooLate(numbers);
  EXPECT_EQ(GetRandomMusicFile(3, 15, 25, oneTooLate), "");
}

TEST_F(Draw, FindsNothingWithoutAList) {
  fs::remove("musiclist.txt");
  ScriptedNumbers random;
  EXPECT_EQ(GetRandomMusicFile(3, 0, 100, random), "");
}

TEST_F(Draw, TakesTheFirstLineWhenNothingWasCounted) {
  ScriptedNumbers random({0.9});
  EXPECT_EQ(GetRandomMusicFile(0, 0, 100, random), Path("10.mp3"));
}

TEST_F(Draw, TakesTheLastLineWhenTheListIsShorterThanCounted) {
  ScriptedNumbers random({0.9});
  EXPECT_EQ(GetRandomMusicFile(50, 0, 100, random), Path("30.mp3"));
}

TEST_F(Draw, AcceptsABlankLineAsAnEmptyPath) {
  PutFile("musiclist.txt", "  \r\n");
  ScriptedNumbers random;
  EXPECT_EQ(GetRandomMusicFile(1, 0, 100, random), "");
}

TEST_F(Draw, AcceptsAFileThatCannotBeReadAsZeroSeconds) {
  PutFile("musiclist.txt", " /gone/song.mp3 \r\n");
  ScriptedNumbers random;
  EXPECT_EQ(GetRandomMusicFile(1, 0, 100, random), "/gone/song.mp3");
  EXPECT_EQ(GetRandomMusicFile(1, 1, 100, random), "");
}

}  // namespace
}  // namespace repvolta
