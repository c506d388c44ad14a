#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RecordFormat.h"
#include "app/WorkoutFiles.h"
#include "mp3/RepvoltaMP3v2.h"
#include "update/Steps.h"
#include "update/UpdateDriver.h"
#include "update/UpdateFixture.h"

#include "support/HiddenFile.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

using UpdateDriver = UpdateFixture;

TEST_F(UpdateDriver, DoesNothingWithoutAWorkout) {
  state.WorkoutFileName = "  ";
  Update();
  EXPECT_THAT(run.calls, IsEmpty());
  EXPECT_TRUE(fs::is_empty("player"));
}

TEST_F(UpdateDriver, MakesAnEmptyFolderForAWorkoutWithoutExercises) {
  PutFile("player/Monday/RV001-Old.mp3", "old");
  Update();
  EXPECT_THAT(PlayerFiles(), IsEmpty());
  EXPECT_THAT(run.log, ElementsAre("Updating Workout Monday.RPV",
                                   "Created directory " + Full("player") + "/Monday/", "",
                                   "UPDATE COMPLETE."));
}

TEST_F(UpdateDriver, WritesInstructionMusicAndPlayListInOrder) {
  PutFile("music/Song.mp3", SongBytes(3));
  AddSong(AddNamed("Squat"), Full("music/Song.mp3"));
  AddNamed("Rowing");

  Update();

  EXPECT_THAT(PlayerFiles(), ElementsAre("Monday.M3U", "RV001-Instructions.mp3", "RV002-Song.mp3",
                                         "RV003-Instructions.mp3"));
  const std::string output = Full("player/Monday/");
  EXPECT_EQ(PlayList(), output + "RV001-Instructions.mp3\r\n" + output + "RV002-Song.mp3\r\n" +
                            output + "RV003-Instructions.mp3\r\n");
  EXPECT_THAT(processes.started,
              ElementsAre("lame.exe -V4 temp.wav temp.mp3", "lame.exe -V4 temp.wav temp.mp3"));
  EXPECT_FALSE(fs::exists("temp.wav"));
  EXPECT_FALSE(fs::exists("temp.mp3"));
}

TEST_F(UpdateDriver, LogsEachStep) {
  PutFile("music/Song.mp3", SongBytes(3));
  AddSong(AddNamed("Squat"), Full("music/Song.mp3"));

  Update();

  EXPECT_THAT(
      run.log,
      ElementsAre("Updating Workout Monday.RPV", "Created directory " + Full("player/Monday/"),
                  "RV001-Instructions.mp3 MP3 Instruction file created sucessfully.",
                  "RV001-Instructions.mp3  TAG modified OK", "RV002-Song.mp3  TAG modified OK", "",
                  "UPDATE COMPLETE."));
}

TEST_F(UpdateDriver, GivesMusicTheTagOfItsInstruction) {
  PutFile("music/Song.mp3", SongBytes(3));
  ExerciseRecord& exercise = AddNamed("Squat");
  AddSet(exercise, 50, 10);
  AddSong(exercise, Full("music/Song.mp3"));

  Update();

  const std::string song = GetTextFile("player/Monday/RV002-Song.mp3");
  EXPECT_THAT(song, testing::HasSubstr("RV002- Squat - 1 set, 50kg for 10reps"));
  EXPECT_THAT(song, testing::HasSubstr("Monday.RPV"));
  EXPECT_THAT(GetTextFile("player/Monday/RV001-Instructions.mp3"),
              testing::HasSubstr("RV001- Squat - 1 set, 50kg for 10reps"));
}

TEST_F(UpdateDriver, HasTheValuesInTheTitleAlsoWhenTheyAreNotSaid) {
  state.Settings.IncludeWeightValues = kFalse;
  AddSet(AddNamed("Squat"), 50, 10);
  Update();
  EXPECT_THAT(GetTextFile("player/Monday/RV001-Instructions.mp3"),
              testing::HasSubstr("RV001- Squat - 1 set, 50kg for 10reps"));
}

TEST_F(UpdateDriver, LeavesTheUsersMusicAlone) {
  PutFile("music/Song.mp3", SongBytes(3));
  const auto time = fs::last_write_time("music/Song.mp3");
  AddSong(AddNamed("Squat"), Full("music/Song.mp3"));
  Update();
  EXPECT_EQ(GetFile("music/Song.mp3"), SongBytes(3));
  EXPECT_EQ(fs::last_write_time("music/Song.mp3"), time);
}

TEST_F(UpdateDriver, LeavesOutMissingMusicAndItsNumber) {
  PutFile("music/Song.mp3", SongBytes(3));
  ExerciseRecord& exercise = AddNamed("Squat");
  AddSong(exercise, " " + Full("music/Song.mp3"));
  AddSong(exercise, Full("music/gone.mp3"));
  AddNamed("Rowing");

  Update();

  EXPECT_THAT(PlayerFiles(), ElementsAre("Monday.M3U", "RV001-Instructions.mp3", "RV002-Song.mp3",
                                         "RV003-Instructions.mp3"));
  EXPECT_THAT(run.log, Contains("ERROR: File not found. " + Full("music/gone.mp3")));
}

TEST_F(UpdateDriver, TrimsTheNameOfASong) {
  PutFile("music/ lead.mp3", SongBytes(3));
  AddSong(AddNamed("Squat"), Full("music/ lead.mp3"));

  Update();

  EXPECT_THAT(PlayerFiles(), ElementsAre("Monday.M3U", "RV001-Instructions.mp3", "RV002-lead.mp3"));
  EXPECT_THAT(PlayList(), testing::EndsWith("/RV002-lead.mp3\r\n"));
  EXPECT_THAT(run.log, Contains("RV002-lead.mp3  TAG modified OK"));
}

TEST_F(UpdateDriver, TakesAFolderOrADanglingLinkForAMissingFile) {
  ExerciseRecord& exercise = AddNamed("Squat");
  fs::create_directories("music/folder.mp3");
  fs::create_symlink("nowhere", "music/link.mp3");
  AddSong(exercise, Full("music/folder.mp3"));
  AddSong(exercise, Full("music/link.mp3"));

  Update();

  EXPECT_THAT(run.log, Contains("ERROR: File not found. " + Full("music/folder.mp3")));
  EXPECT_THAT(run.log, Contains("ERROR: File not found. " + Full("music/link.mp3")));
}

TEST_F(UpdateDriver, CountsBeyondThreeDigits) {
  PutFile("music/Song.mp3", SongBytes(1));
  // The editing commands allow fewer exercises and songs; only a file can have that many.
  for (int i = 0; i < 5; ++i) {
    ExerciseRecord& exercise = AddNamed("Squat " + std::to_string(i));
    for (int j = 0; j < 12; ++j) AddSong(exercise, Full("music/Song.mp3"));
  }
  state.NumberOfExercises = 52;
  for (int i = 5; i < 52; ++i) state.Workout[i] = state.Workout[0];
  for (int i = 0; i < 52; ++i) state.Workout[i].NumberOfMusicFiles = 12;
  Update();
  EXPECT_TRUE(fs::exists("player/Monday/RV099-Song.mp3"));
  EXPECT_TRUE(fs::exists("player/Monday/RV100-Song.mp3"));
  EXPECT_TRUE(fs::exists("player/Monday/RV676-Song.mp3"));
}

TEST_F(UpdateDriver, KeepsTheWavFileWithoutAnEncoder) {
  fs::remove("lame.exe");
  AddNamed("Squat");

  Update();

  EXPECT_THAT(PlayerFiles(), ElementsAre("Monday.M3U", "RV001-Instructions.WAV"));
  EXPECT_EQ(PlayList(), Full("player/Monday/RV001-Instructions.WAV\r\n"));
  EXPECT_THAT(run.log, Contains("RV001-Instructions.WAV WAV Instruction file created "
                                "sucessfully."));
  EXPECT_TRUE(fs::exists("temp.wav"));
  EXPECT_THAT(processes.started, IsEmpty());
}

TEST_F(UpdateDriver, TagsNoWavFile) {
  fs::remove("lame.exe");
  AddNamed("Squat");
  Update();
  EXPECT_EQ(GetFile("player/Monday/RV001-Instructions.WAV"), GetFile("temp.wav"));
  EXPECT_THAT(run.log, Not(Contains(testing::HasSubstr("TAG"))));
}

TEST_F(UpdateDriver, SaysSoWhenTheEncoderWritesNothing) {
  processes.run = nullptr;
  PutFile("temp.mp3", "the instruction of another day");
  AddNamed("Squat");

  Update();

  EXPECT_THAT(run.log, Contains("ERROR: temp.mp3 could not be read: No such file or directory"));
  EXPECT_FALSE(fs::exists("player/Monday/RV001-Instructions.mp3"));
  EXPECT_EQ(run.log.back(), "UPDATE COMPLETE.");
}

TEST_F(UpdateDriver, ListsNoInstructionThatIsNotThere) {
  processes.run = nullptr;
  AddNamed("Squat");
  Update();
  EXPECT_FALSE(fs::exists("player/Monday/Monday.M3U"));
}

TEST_F(UpdateDriver, EndsEachStepWithItsLineAlsoBehindAnError) {
  fs::remove("player");
  AddNamed("Squat");
  Update();
  EXPECT_THAT(run.log, Contains("Created directory " + Full("player/Monday/")));
  EXPECT_THAT(run.log,
              Contains("RV001-Instructions.mp3 MP3 Instruction file created sucessfully."));
  EXPECT_FALSE(fs::exists("player"));
}

TEST_F(UpdateDriver, GoesOnWhenAnExerciseCannotBeSpoken) {
  speech.fails = true;
  AddExercise("Unheard of");
  AddNamed("Squat");

  Update();

  EXPECT_THAT(run.log, Contains("ERROR: There is no speech engine"));
  EXPECT_TRUE(fs::exists("player/Monday/RV002-Instructions.mp3"));
}

TEST_F(UpdateDriver, SavesWhatHasGrownBeforeItProducesSound) {
  ExerciseRecord& exercise = AddNamed("Squat");
  AddSet(exercise, 50, 10);
  exercise.SetIncrement1[0] = 2.5F;
  exercise.SetFrequency1[0] = 1;
  exercise.NextUpdate1[0] = kToday - 2;
  const auto encode = processes.run;
  processes.run = [&](const ChildCommand& command) {
    EXPECT_EQ(DecodeWorkout(GetFile("workouts/Monday.RPV"))[0].SetValue1[0], 52.5F);
    encode(command);
  };

  Update();

  EXPECT_THAT(run.log, Contains("Updated Field 1 in exercise - Squat"));
  EXPECT_EQ(GetFile("workouts/Monday.RPV"), EncodeWorkout(state.Workout));
}

TEST_F(UpdateDriver, ReportsCountsBeyondTheSlotsOnceAnExercise) {
  AddNamed("Squat").NumberOfMusicFiles = 32767;
  AddNamed("Rowing").NumberOfSets = 18;
  AddNamed("Plank").NumberOfSets = -1;

  Update();

  EXPECT_EQ(std::count(run.log.begin(), run.log.end(), "ERROR: Number 12 is outside 0 to 11"), 1);
  EXPECT_THAT(run.log, Contains("ERROR: Number 17 is outside 0 to 16"));
  EXPECT_EQ(run.log.back(), "UPDATE COMPLETE.");
}

TEST_F(UpdateDriver, SaysOnceWhatKeptAFileFromBeingCopied) {
  PutFile("music/Song.mp3", SongBytes(3));
  AddSong(AddNamed("Squat"), Full("music/Song.mp3"));
  PutFolderInTheWay("player/Monday/RV002-Song.mp3");

  Update();

  EXPECT_THAT(run.log, Contains("ERROR: Song.mp3 could not be copied: Is a directory"));
  EXPECT_EQ(PlayList(), Full("player/Monday/RV001-Instructions.mp3\r\n"));
}

TEST_F(UpdateDriver, WaitsForACopyAsLongAsThePersonLikes) {
  PutFile("music/Song.mp3", SongBytes(3));
  AddSong(AddNamed("Squat"), Full("music/Song.mp3"));
  const HiddenFile notYet("RV002-Song.mp3");
  int waits = 0;
  run.keepWaiting = [&] {
    if (++waits == 5) HiddenFile::Show();
    return true;
  };

  Update();

  EXPECT_EQ(waits, 5);
  EXPECT_THAT(run.log, Contains("RV002-Song.mp3  TAG modified OK"));
}

TEST_F(UpdateDriver, DoesNotWaitForACopyThatFailed) {
  PutFile("music/Song.mp3", SongBytes(3));
  AddSong(AddNamed("Squat"), Full("music/Song.mp3"));
  PutFolderInTheWay("player/Monday/RV002-Song.mp3");
  bool hasWaited = false;
  run.keepWaiting = [&] {
    hasWaited = true;
    return false;
  };

  Update();

  EXPECT_FALSE(hasWaited);
  EXPECT_THAT(run.log, Contains("UPDATE COMPLETE."));
  EXPECT_EQ(PlayList(), Full("player/Monday/RV001-Instructions.mp3") + "\r\n");
}

TEST_F(UpdateDriver, EndsAtTheNextStepWhenItIsStopped) {
  AddNamed("Squat");
  AddNamed("Rowing");
  run.stopRequested = [&] { return processes.started.size() == 1; };

  EXPECT_THROW(Update(), UpdateStopped);

  EXPECT_THAT(run.log, Not(Contains("UPDATE COMPLETE.")));
  EXPECT_EQ(processes.started.size(), 1U);
  EXPECT_FALSE(fs::exists("temp.wav"));
  EXPECT_FALSE(fs::exists("temp.mp3"));
}

TEST_F(UpdateDriver, ClearsTheListBeforeItLogsWhatFailedBefore) {
  state.WorkoutFileName = "...RPV";
  Update();
  ASSERT_GE(run.log.size(), 2U);
  EXPECT_EQ(run.log[0], "Updating Workout ...RPV");
  EXPECT_THAT(run.log[1], StartsWith("ERROR: " + Full("player") + "/.. is not deleted"));
}

TEST_F(UpdateDriver, ShowsTheProgressWindowAndLeavesItOpen) {
  Update();
  EXPECT_THAT(run.calls, ElementsAre("show", "line", "line", "line", "line"));
}

TEST_F(UpdateDriver, TellsWhereItsPlayListIs) {
  EXPECT_EQ(UpdateCurrentWorkout(program, run, run), Full("player/Monday/Monday.M3U"));
  state.WorkoutFileName = " ";
  EXPECT_EQ(UpdateCurrentWorkout(program, run, run), std::nullopt);
}

}  // namespace
}  // namespace repvolta
