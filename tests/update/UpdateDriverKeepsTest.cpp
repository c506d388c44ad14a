#include <cstdlib>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RecordFormat.h"
#include "update/UpdateFixture.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::Contains;

using UpdateDriver = UpdateFixture;

TEST_F(UpdateDriver, WritesNothingOutsideTheOutputPath) {
  state.WorkoutFileName = "...RPV";
  PutFile("music/Song.mp3", SongBytes(3));
  AddSong(AddNamed("Squat"), Full("music/Song.mp3"));
  PutFile("RV001-Instructions.mp3", "theirs");

  Update();

  EXPECT_EQ(GetTextFile("RV001-Instructions.mp3"), "theirs");
  EXPECT_FALSE(fs::exists("RV002-Song.mp3"));
  EXPECT_FALSE(fs::exists("...M3U"));
  EXPECT_TRUE(fs::is_empty("player"));
}

TEST_F(UpdateDriver, TouchesNoFileOfAFolderThatHoldsTheMusic) {
  state.Settings.MusicPath = Full("player/Monday");
  PutFile("player/Monday/Song.mp3", SongBytes(3));
  PutFile("player/Monday/RV001-Instructions.mp3", "theirs");
  PutFile("player/Monday/Monday.M3U", "theirs too");
  AddSong(AddNamed("Squat"), Full("player/Monday/Song.mp3"));

  Update();

  EXPECT_EQ(GetFile("player/Monday/Song.mp3"), SongBytes(3));
  EXPECT_EQ(GetTextFile("player/Monday/RV001-Instructions.mp3"), "theirs");
  EXPECT_EQ(GetTextFile("player/Monday/Monday.M3U"), "theirs too");
}

TEST_F(UpdateDriver, ErasesNoMusicWhereTheMusicIsTheOutputPath) {
  state.Settings.MusicPath = state.Settings.OutputPath;
  PutFile("player/Monday/lead.mp3", SongBytes(3));
  AddSong(AddNamed("Squat"), Full("player/Monday/lead.mp3"));

  Update();

  EXPECT_EQ(GetFile("player/Monday/lead.mp3"), SongBytes(3));
  EXPECT_THAT(run.log, Contains("ERROR: " + Full("player/Monday is not deleted: ") +
                                Full("player/Monday/lead.mp3 lies there")));
  EXPECT_TRUE(fs::exists("player/Monday/RV002-lead.mp3"));
  EXPECT_EQ(run.log.back(), "UPDATE COMPLETE.");
}

TEST_F(UpdateDriver, ErasesNoSongOfTheMusicList) {
  PutFile("player/Monday/lead.mp3", SongBytes(3));
  PutFile("musiclist.txt", Full("player/Monday/lead.mp3\n"));
  Update();
  EXPECT_EQ(GetFile("player/Monday/lead.mp3"), SongBytes(3));
}

TEST_F(UpdateDriver, ErasesNoSongOfAnotherWorkout) {
  PutFile("player/Monday/lead.mp3", SongBytes(3));
  ExerciseSlots other;
  other[0].ExerciseName = "Squat";
  other[0].MusicFile[0] = Full("player/Monday/lead.mp3");
  other[0].NumberOfMusicFiles = 1;
  PutFile("workouts/Tuesday.RPV", EncodeWorkout(other));
  Update();
  EXPECT_EQ(GetFile("player/Monday/lead.mp3"), SongBytes(3));
}

TEST_F(UpdateDriver, ErasesNeitherTheHomeFolderNorTheProgramDirectory) {
  PutFile("player/Monday/diary.txt", "mine");
  const std::string before = std::getenv("HOME") == nullptr ? "" : std::getenv("HOME");
  setenv("HOME", Full("player/Monday").c_str(), 1);
  Update();
  setenv("HOME", before.c_str(), 1);
  EXPECT_EQ(GetTextFile("player/Monday/diary.txt"), "mine");

  state.ProgramDirectory = Full("player/Monday/");
  Update();
  EXPECT_EQ(GetTextFile(Full("player/Monday/diary.txt")), "mine");
}

}  // namespace
}  // namespace repvolta
