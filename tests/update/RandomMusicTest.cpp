#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RecordFormat.h"
#include "update/RandomMusicList.h"
#include "update/UpdateFixture.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::Not;
using testing::StartsWith;

class RandomMusic : public UpdateFixture {
 protected:
  ExerciseRecord& AddRandom(std::int16_t target) {
    ExerciseRecord& exercise = AddNamed("Squat");
    exercise.RandomMusic = kTrue;
    exercise.TargetExerciseTime = target;
    return exercise;
  }

  void ListSongs(std::initializer_list<int> seconds) {
    std::string list;
    for (const int time : seconds) {
      const std::string path = Full("music/" + std::to_string(time) + ".mp3");
      PutFile(path, SongBytes(time));
      list += path + "\n";
    }
    PutFile("musiclist.txt", list);
    CountRandomMusicFiles(state);
  }
};

TEST_F(RandomMusic, FillsUntilTheTargetIsPassed) {
  ListSongs({200});
  ExerciseRecord& exercise = AddRandom(300);

  Update();

  EXPECT_EQ(exercise.NumberOfMusicFiles, 2);
  EXPECT_EQ(exercise.TotalMusicTime, 400);
  EXPECT_EQ(exercise.MusicFilePlayTime[1], 200);
  EXPECT_EQ(exercise.MusicFile[1].Text(), Full("music/200.mp3"));
  EXPECT_THAT(run.log, Contains("Random music file found and added for Exercise - Squat").Times(2));
  EXPECT_TRUE(fs::exists("player/Monday/RV003-200.mp3"));
}

TEST_F(RandomMusic, GoesOnWhenTheTargetIsJustReached) {
  ListSongs({10});
  ExerciseRecord& exercise = AddRandom(20);
  Update();
  EXPECT_EQ(exercise.NumberOfMusicFiles, 3);
}

TEST_F(RandomMusic, TakesNoMoreThanTenFiles) {
  ListSongs({1});
  ExerciseRecord& exercise = AddRandom(300);
  Update();
  EXPECT_EQ(exercise.NumberOfMusicFiles, 10);
  EXPECT_EQ(exercise.TotalMusicTime, 10);
}

TEST_F(RandomMusic, RejectsSongsOfMoreThanTwiceTheTarget) {
  ListSongs({201});
  ExerciseRecord& exercise = AddRandom(100);
  Update();
  EXPECT_EQ(exercise.NumberOfMusicFiles, 0);
  EXPECT_THAT(run.log, Contains("ERROR: Unable to find random music for Exercise - Squat"));
}

TEST_F(RandomMusic, FailsOnceWithoutAList) {
  ExerciseRecord& exercise = AddRandom(100);
  exercise.TotalMusicTime = 50;
  exercise.NumberOfMusicFiles = 1;
  Update();
  EXPECT_THAT(run.log,
              Contains("ERROR: Unable to find random music for Exercise - Squat").Times(1));
  EXPECT_EQ(exercise.NumberOfMusicFiles, 0);
  EXPECT_EQ(exercise.TotalMusicTime, 0);
}

TEST_F(RandomMusic, TakesExactlyOneFileForATargetOfZero) {
  ListSongs({0});
  ExerciseRecord& exercise = AddRandom(0);
  PutFile("music/0.mp3", "no frame, no time");
  Update();
  EXPECT_EQ(exercise.NumberOfMusicFiles, 1);
}

TEST_F(RandomMusic, DropsAFileThatIsGoneAndKeepsTheOthers) {
  ListSongs({10});
  PutFile("musiclist.txt", GetTextFile("musiclist.txt") + "/gone.mp3\n");
  CountRandomMusicFiles(state);
  random = ScriptedNumbers({0.0, 0.9});
  // Each draw takes 101 numbers, so the second one begins with the missing file.
  ExerciseRecord& exercise = AddRandom(20);
  Update();
  EXPECT_EQ(exercise.NumberOfMusicFiles, 1);
  EXPECT_EQ(exercise.TotalMusicTime, 10);
}

TEST_F(RandomMusic, IsDrawnOnlyForATrueFlag) {
  ListSongs({10});
  ExerciseRecord& exercise = AddRandom(5);
  exercise.RandomMusic = 1;
  AddSong(exercise, Full("music/10.mp3"));
  Update();
  EXPECT_THAT(run.log, Not(Contains(StartsWith("Random music"))));
  EXPECT_EQ(exercise.NumberOfMusicFiles, 1);
}

TEST_F(RandomMusic, ReportsATargetWhoseDoubleDoesNotFit) {
  ListSongs({10});
  AddRandom(16384);
  Update();
  EXPECT_THAT(run.log, Contains("ERROR: The number is too large"));
  EXPECT_THAT(run.log, Contains("ERROR: Unable to find random music for Exercise - Squat"));
}

TEST_F(RandomMusic, IsFoundByItsOwnBytes) {
  PutFile("music/caf\xE9.mp3", SongBytes(10));
  PutFile("musiclist.txt", Full("music/caf\xE9.mp3\n"));
  CountRandomMusicFiles(state);
  AddRandom(5);
  Update();
  EXPECT_TRUE(fs::exists("player/Monday/RV002-caf\xE9.mp3"));
  EXPECT_THAT(PlayList(), testing::EndsWith("RV002-caf\xE9.mp3\r\n"));
}

TEST_F(RandomMusic, IsCopiedFromAPathThatIsTooLongForItsField) {
  const std::string path =
      Full("music/" + std::string(200, 'a') + "/" + std::string(100, 'b') + "/song.mp3");
  PutFile(path, SongBytes(10));
  PutFile("musiclist.txt", path + "\n");
  CountRandomMusicFiles(state);
  const ExerciseRecord& exercise = AddRandom(5);

  Update();

  EXPECT_TRUE(fs::exists("player/Monday/RV002-song.mp3"));
  EXPECT_THAT(run.log, Not(Contains(StartsWith("ERROR"))));
  EXPECT_EQ(exercise.MusicFile[0].Text(), path.substr(0, 256));
}

TEST_F(RandomMusic, IsSavedWithTheWorkout) {
  ListSongs({200});
  AddRandom(100);
  Update();
  const ExerciseSlots saved = DecodeWorkout(GetFile("workouts/Monday.RPV"));
  EXPECT_EQ(saved[0].NumberOfMusicFiles, 1);
  EXPECT_EQ(saved[0].MusicFile[0].Text(), Full("music/200.mp3"));
}

}  // namespace
}  // namespace repvolta
