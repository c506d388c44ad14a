#include <filesystem>
#include <gtest/gtest.h>

#include "base/FileNames.h"

#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

TEST(FileNames, AreTakenApart) {
  EXPECT_EQ(FileName("/music/Song.mp3"), "Song.mp3");
  EXPECT_EQ(FileName("Song.mp3"), "Song.mp3");
  EXPECT_EQ(BaseName("/music/My.Song.mp3"), "My.Song");
  EXPECT_EQ(BaseName("/music/plain"), "plain");
  EXPECT_EQ(BaseName(".RPV"), "");
  EXPECT_EQ(FolderOf("/music/Song.mp3"), "/music/");
  EXPECT_EQ(FolderOf("Song.mp3"), "");
}

TEST(IsFileName, RefusesWhatCannotNameOneEntry) {
  EXPECT_TRUE(IsFileName("Montag früh.RPV"));
  EXPECT_TRUE(IsFileName(std::string(255, 'x')));
  for (const std::string& name :
       {std::string(), std::string("."), std::string(".."), std::string("a/b"), std::string("a\nb"),
        std::string("a\0b", 3), std::string(256, 'x')})
    EXPECT_FALSE(IsFileName(name)) << testing::PrintToString(name);
}

TEST(AsFileName, ReplacesWhatANameCannotHold) {
  EXPECT_EQ(AsFileName("Clean/Jerk", ".WAV"), "Clean_Jerk.WAV");
  EXPECT_EQ(AsFileName("../../etc", ".WAV"), ".._.._etc.WAV");
  EXPECT_EQ(AsFileName("a\nb", ".WAV"), "a_b.WAV");
}

TEST(AsFileName, CutsBetweenCharacters) {
  const std::string name = AsFileName(std::string(250, 'x') + "é", ".WAV");
  EXPECT_EQ(name, std::string(250, 'x') + ".WAV");
}

TEST(FindFile, PrefersTheExactName) {
  TemporaryFolder folder;
  PutFile("voice/SET.wav", "1");
  PutFile("voice/set.wav", "2");
  EXPECT_EQ(FindFile("voice/set.wav"), "voice/set.wav");
}

TEST(FindFile, FallsBackOnNamesOfOtherCase) {
  TemporaryFolder folder;
  PutFile("voice/exercise/Bench Press.wav", "1");
  EXPECT_EQ(FindFile("voice/exercise/bench press.WAV"), "voice/exercise/Bench Press.wav");
  EXPECT_EQ(FindFile("voice/exercise/bench.WAV"), std::nullopt);
  EXPECT_EQ(ExistingName("voice/exercise/bench.WAV"), "voice/exercise/bench.WAV");
}

TEST(ListFiles, ComeInNameOrderWithoutRegardToCase) {
  TemporaryFolder folder;
  for (const char* name : {"b.RPV", "A.rpv", "c.Rpv", "other.txt", ".hidden.RPV"})
    PutFile(std::string("workouts/") + name, "");
  std::filesystem::create_directory("workouts/folder.RPV");

  EXPECT_EQ(ListFiles("workouts", ".RPV"),
            (std::vector<std::string>{".hidden.RPV", "A.rpv", "b.RPV", "c.Rpv"}));
}

TEST(ListFiles, GivesNothingForAFolderThatIsMissing) {
  TemporaryFolder folder;
  EXPECT_TRUE(ListFiles("workouts", ".RPV").empty());
}

}  // namespace
}  // namespace repvolta
