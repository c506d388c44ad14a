#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "update/Steps.h"
#include "update/UpdateFixture.h"

#include "support/RefusingDisk.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/// Updates to disks that can do less than the computer's own.
using UpdateDriver = UpdateFixture;

constexpr const char* kForbidden = "<>:\"\\|?*";

TEST_F(UpdateDriver, SaysOnceAFileHowAPlayerKeepsItsName) {
  PutFile("music/What's up?.mp3", SongBytes(3));
  AddSong(AddNamed("Squat"), Full("music/What's up?.mp3"));
  const RefusingDisk disk(kForbidden);

  Update();

  EXPECT_THAT(
      run.log,
      ElementsAre("Updating Workout Monday.RPV", "Created directory " + Full("player/Monday/"),
                  "RV001-Instructions.mp3 MP3 Instruction file created "
                  "sucessfully.",
                  "RV001-Instructions.mp3  TAG modified OK",
                  "WARNING: What's up?.mp3 is kept as RV002-What's up_.mp3",
                  "RV002-What's up_.mp3  TAG modified OK", "", "UPDATE COMPLETE."));
  EXPECT_THAT(PlayList(), HasSubstr(Full("player/Monday/RV002-What's up_.mp3\r\n")));
  EXPECT_THAT(GetTextFile("player/Monday/RV002-What's up_.mp3"), HasSubstr("RV002- Squat"));
}

TEST_F(UpdateDriver, SaysHowAPlayerKeepsTheNamesOfFolderAndPlayList) {
  state.WorkoutFileName = "Week: 1.RPV";
  AddNamed("Squat");
  const RefusingDisk disk(kForbidden);

  EXPECT_EQ(UpdateCurrentWorkout(program, run, run), Full("player/Week_ 1/Week_ 1.M3U"));

  EXPECT_THAT(
      run.log,
      ElementsAre("Updating Workout Week: 1.RPV", "Created directory " + Full("player/Week_ 1/"),
                  "WARNING: Week: 1 is kept as Week_ 1",
                  "RV001-Instructions.mp3 MP3 Instruction file created "
                  "sucessfully.",
                  "RV001-Instructions.mp3  TAG modified OK",
                  "WARNING: Week: 1.M3U is kept as Week_ 1.M3U", "", "UPDATE COMPLETE."));
  EXPECT_EQ(GetTextFile("player/Week_ 1/Week_ 1.M3U"),
            Full("player/Week_ 1/RV001-Instructions.mp3\r\n"));
}

TEST_F(UpdateDriver, SaysNothingOfNamesThatAreKeptAsTheyAre) {
  PutFile("music/What's up?.mp3", SongBytes(3));
  AddSong(AddNamed("Squat"), Full("music/What's up?.mp3"));
  Update();
  EXPECT_THAT(run.log, Not(Contains(HasSubstr("kept"))));
  EXPECT_TRUE(fs::exists("player/Monday/RV002-What's up?.mp3"));
}

TEST_F(UpdateDriver, WritesThePlayListAtTheEndWhereNoFileIsWrittenTwice) {
  PutFile("music/Song.mp3", SongBytes(3));
  AddSong(AddNamed("Squat"), Full("music/Song.mp3"));
  const RefusingDisk disk("", 0, RefusingDisk::Writing::kOnce);

  Update();

  EXPECT_THAT(run.log, Not(Contains(HasSubstr("ERROR"))));
  EXPECT_EQ(PlayList(), Full("player/Monday/RV001-Instructions.mp3\r\n") +
                            Full("player/Monday/RV002-Song.mp3\r\n"));
}

TEST_F(UpdateDriver, WritesThePlayListThatWaitedAlsoWhenItIsStopped) {
  for (const char* name : {"One", "Two", "Three"}) AddNamed(name);
  const RefusingDisk disk("", 0, RefusingDisk::Writing::kOnce);
  run.stopRequested = [&] { return processes.started.size() == 3; };

  EXPECT_THROW(Update(), UpdateStopped);

  EXPECT_EQ(PlayList(), Full("player/Monday/RV001-Instructions.mp3\r\n") +
                            Full("player/Monday/RV002-Instructions.mp3\r\n"));
}

TEST_F(UpdateDriver, LeavesNoWorkingFileOfASongBehind) {
  // A song without any frame is tagged in a copy of its own.
  PutFile("music/odd.mp3", "ID3 but no frame");
  AddSong(AddNamed("Squat"), Full("music/odd.mp3"));
  Update();
  EXPECT_TRUE(fs::exists("player/Monday/RV002-odd.mp3"));
  EXPECT_FALSE(fs::exists("temp.mp3.new"));
}

}  // namespace
}  // namespace repvolta
