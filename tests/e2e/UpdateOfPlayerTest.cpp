#include <gmock/gmock.h>

#include "e2e/PortableProgram.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::StartsWith;

/// The built program: the player that is not there, and what the options ask for.
using UpdateOfPlayer = PortableProgram;

TEST_F(UpdateOfPlayer, ChangesNothingWithoutThePlayer) {
  Begin("Monday");
  ExerciseRecord& exercise = AddExercise("Squat");
  exercise.NumberOfSets = 1;
  exercise.SetValue1[0] = 50;
  exercise.SetIncrement1[0] = 2.5F;
  exercise.SetFrequency1[0] = 1;
  SaveBegun();
  fs::remove("player");
  const auto before = Snapshot("program");

  const ProgramRun run = Update();

  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(run.errors, "repvolta-update: " + Full("player is not there\n"));
  EXPECT_EQ(Snapshot("program"), before);
  EXPECT_FALSE(fs::exists("player"));
}

TEST_F(UpdateOfPlayer, ChangesNothingWhereThePlayerIsAFile) {
  AddWorkout("Monday", "Squat");
  fs::remove("player");
  PutFile("player", "a file");
  const auto before = Snapshot(".");
  EXPECT_EQ(Update().status, 2);
  EXPECT_EQ(Snapshot("."), before);
}

TEST_F(UpdateOfPlayer, WritesAPlayListForThePlayerOnlyWhenItIsWanted) {
  PutFile("music/Rain.mp3", SongBytes(75));
  Begin("Monday");
  ExerciseRecord& exercise = AddExercise("Squat");
  exercise.NumberOfMusicFiles = 1;
  exercise.MusicFile[0] = Full("music/Rain.mp3");
  SaveBegun();
  EXPECT_EQ(Update().status, 0);
  EXPECT_FALSE(fs::exists("player/Monday/Monday.m3u8"));

  PutFile("program/options.conf", "play-list-for-player = yes\n");
  EXPECT_EQ(Update().status, 0);

  const std::vector<std::string> lines = Lines(GetTextFile("player/Monday/Monday.m3u8"));
  ASSERT_EQ(lines.size(), 5U);
  EXPECT_EQ(lines[0], "#EXTM3U\r");
  EXPECT_THAT(lines[1], testing::MatchesRegex("#EXTINF:[1-9],RV001- Squat - 0 sets\r"));
  EXPECT_EQ(lines[2], "RV001-Instructions.mp3\r");
  EXPECT_EQ(lines[3], "#EXTINF:75,RV002- Squat - 0 sets\r");
  EXPECT_EQ(lines[4], "RV002-Rain.mp3\r");
  EXPECT_TRUE(fs::exists("player/Monday/Monday.M3U"));
}

TEST_F(UpdateOfPlayer, WarnsOnceOfOptionsThatItDoesNotUnderstand) {
  AddWorkout("A", "Squat");
  AddWorkout("B", "Squat");
  PutFile("program/options.conf", "# fine\nnonsense\n");
  const ProgramRun run = Update();
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(
      Lines(run.output).front(),
      "WARNING: options.conf has lines that cannot be understood: 2 (nonsense). They are kept "
      "and have no effect.");
  EXPECT_THAT(Lines(run.output), Contains(StartsWith("WARNING: options")).Times(1));
  EXPECT_EQ(GetTextFile("program/options.conf"), "# fine\nnonsense\n");
}

}  // namespace
}  // namespace repvolta
