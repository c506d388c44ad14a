#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/Options.h"
#include "base/ProgramFiles.h"
#include "update/RoomNeeded.h"
#include "update/UpdateFixture.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kUnit = 4096;

class RoomForUpdate : public UpdateFixture {
 protected:
  std::uint64_t Needed(std::uint64_t unit = kUnit) const {
    return NeededOn(state, kToday, unit).bytes;
  }

  /// What the update's files take.
  static std::uint64_t Taken(std::uint64_t unit = kUnit) {
    std::uint64_t taken = 0;
    for (const auto& entry : fs::directory_iterator("player/Monday")) {
      taken += (entry.file_size() + unit - 1) / unit * unit;
    }
    return taken;
  }

  void AddSongs(ExerciseRecord& exercise) {
    const std::pair<const char*, Bytes> songs[] = {
        {"plain.mp3", SongBytes(9)},
        {"tagged.mp3", Mp3Bytes()
                           .Id3v2(Id3v2Bytes().Frame("APIC", std::string(300'000, 'p')).Syncsafe())
                           .Raw(SongBytes(5))},
        {"old.mp3", Mp3Bytes().Raw(SongBytes(3)).Id3v1("Old")}};
    for (const auto& [name, content] : songs) {
      PutFile(std::string("music/") + name, content);
      AddSong(exercise, Full("music/") + name);
    }
  }
};

TEST_F(RoomForUpdate, IsExactForSongs) {
  ExerciseRecord& exercise = AddNamed("Squat");
  const std::uint64_t without = Needed();
  Update();
  const std::uint64_t takenWithout = Taken();
  AddSongs(exercise);

  const std::uint64_t needed = Needed();
  Update();

  EXPECT_EQ(needed - without, Taken() - takenWithout);
}

TEST_F(RoomForUpdate, IsEnoughForASongThatIsTaggedInASecondStep) {
  PutFile("music/odd.mp3", Mp3Bytes().Garbage(70'000).Raw("ID3").Raw(SongBytes(4)));
  ExerciseRecord& exercise = AddNamed("Squat");
  const std::uint64_t without = Needed();
  Update();
  const std::uint64_t takenWithout = Taken();
  AddSong(exercise, Full("music/odd.mp3"));

  const std::uint64_t needed = Needed();
  Update();

  EXPECT_GE(needed - without, Taken() - takenWithout);
}

TEST_F(RoomForUpdate, IsNoneForASongThatIsMissing) {
  ExerciseRecord& exercise = AddNamed("Squat");
  const std::uint64_t without = Needed();
  AddSong(exercise, Full("music/gone.mp3"));
  EXPECT_EQ(Needed(), without);
}

TEST_F(RoomForUpdate, IsATenthMoreThanAnInstructionWithoutEncoder) {
  fs::remove("lame.exe");
  PutFile("voice/exercise/Squat.WAV", ClipBytes(Bytes(100'000, '#')));
  AddExercise("Squat");
  const std::uint64_t needed = Needed(1);
  Update();
  const auto wav = static_cast<double>(fs::file_size("player/Monday/RV001-Instructions.WAV"));
  EXPECT_NEAR(static_cast<double>(needed), wav * 1.1, 1000);
}

TEST_F(RoomForUpdate, IsLessForAnInstructionThatIsEncoded) {
  PutFile("voice/exercise/Squat.WAV", ClipBytes(Bytes(1'000'000, '#')));
  AddExercise("Squat");
  const std::uint64_t encoded = Needed();
  fs::remove("lame.exe");
  EXPECT_LT(encoded * 3, Needed());
}

TEST_F(RoomForUpdate, CountsTheWordsThatAreSaid) {
  PutFile("voice/reps.wav", ClipBytes(Bytes(400'000, 'r')));
  ExerciseRecord& exercise = AddNamed("Squat");
  AddSet(exercise, 50, 10);
  const std::uint64_t said = Needed();
  state.Settings.IncludeWeightValues = kFalse;
  EXPECT_GT(said, Needed() + 100'000);
}

TEST_F(RoomForUpdate, CountsTheWordsAsTheyWillHaveGrown) {
  fs::remove("lame.exe");
  PutFile("voice/60.wav", ClipBytes(Bytes(500'000, 'r')));
  ExerciseRecord& exercise = AddNamed("Squat");
  AddSet(exercise, 50, 10);
  exercise.SetIncrement1[0] = 10;
  exercise.SetFrequency1[0] = 1;
  exercise.NextUpdate1[0] = kToday - 3;
  const ExerciseSlots before = state.Workout;
  EXPECT_GT(Needed(), 500'000U);
  EXPECT_EQ(state.Workout, before);
}

TEST_F(RoomForUpdate, CountsANameThatIsYetToBeSpoken) {
  AddExercise("Nameless");
  const std::uint64_t unspoken = Needed();
  PutFile("voice/exercise/Nameless.WAV", ClipBytes(Bytes(10, '#')));
  EXPECT_GT(unspoken, Needed());
}

TEST_F(RoomForUpdate, ReachesForRandomMusicThatFillsTheTarget) {
  std::string list;
  for (int i = 0; i < 40; ++i) {
    const std::string name = Full("music/" + std::to_string(i) + ".mp3");
    PutFile(name, SongBytes(20));
    list += name + "\n";
  }
  PutFile(kMusicList, list);
  state.RandomMusicFiles = 40;
  ExerciseRecord& exercise = AddNamed("Squat");
  exercise.RandomMusic = kTrue;
  exercise.TargetExerciseTime = 90;

  const std::uint64_t needed = Needed();
  Update();

  EXPECT_EQ(exercise.NumberOfMusicFiles, 5);
  EXPECT_GE(needed, Taken());
  EXPECT_LE(needed, Taken() * 5 / 4);
}

TEST_F(RoomForUpdate, StopsAtTenRandomSongs) {
  PutFile("music/short.mp3", SongBytes(10));
  PutFile(kMusicList, Full("music/short.mp3\n"));
  state.RandomMusicFiles = 1;
  ExerciseRecord& exercise = AddNamed("Squat");
  exercise.RandomMusic = kTrue;
  exercise.TargetExerciseTime = 100;
  const std::uint64_t ten = Needed();
  exercise.TargetExerciseTime = 3000;
  EXPECT_EQ(Needed(), ten);
}

TEST_F(RoomForUpdate, IsNoneForRandomMusicWithoutAListOrATarget) {
  ExerciseRecord& exercise = AddNamed("Squat");
  const std::uint64_t without = Needed();
  exercise.RandomMusic = kTrue;
  exercise.TargetExerciseTime = 100;
  EXPECT_EQ(Needed(), without);
  state.RandomMusicFiles = 3;
  EXPECT_EQ(Needed(), without);
  PutFile(kMusicList, "/gone.mp3\n");
  EXPECT_EQ(Needed(), without);
}

TEST_F(RoomForUpdate, SurvivesADamagedWorkout) {
  ExerciseRecord& exercise = AddNamed("Squat");
  exercise.NumberOfMusicFiles = 32767;
  exercise.NumberOfSets = 32767;
  EXPECT_GT(Needed(), 0U);
  exercise.NumberOfMusicFiles = exercise.NumberOfSets = -1;
  EXPECT_GT(Needed(), 0U);
  exercise.MusicFilePlayTime[0] = -1;
  EXPECT_TRUE(NeededAtMost(state));
}

TEST_F(RoomForUpdate, IsAtMostWhatThePlayTimesTell) {
  ExerciseRecord& exercise = AddNamed("Squat");
  AddSongs(exercise);
  EXPECT_EQ(NeededAtMost(state), std::nullopt);
  const std::int16_t seconds[] = {9, 5, 3};
  for (int i = 0; i < 3; ++i) exercise.MusicFilePlayTime[i] = seconds[i];
  ASSERT_TRUE(NeededAtMost(state));
  EXPECT_GE(NeededAtMost(state)->bytes, Needed());
}

TEST_F(RoomForUpdate, IsAtMostTheSameWhicheverSlotHasTheLongestTime) {
  ExerciseRecord& exercise = AddNamed("Squat");
  exercise.NumberOfMusicFiles = 2;
  exercise.MusicFilePlayTime[0] = 10;
  exercise.MusicFilePlayTime[1] = 20;
  const auto before = NeededAtMost(state);
  // The name of the third song has moved up, its time has not.
  exercise.MusicFilePlayTime[2] = 3000;
  EXPECT_GT(NeededAtMost(state)->bytes, before->bytes + 2 * 2980 * 40'000);
}

}  // namespace
}  // namespace repvolta
