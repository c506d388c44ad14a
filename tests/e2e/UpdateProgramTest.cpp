#include <algorithm>
#include <csignal>
#include <fstream>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <thread>

#include "app/RecordFormat.h"

#include "e2e/PortableProgram.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class UpdateProgram : public PortableProgram {
 protected:
  /// Replaces the encoder by a script.
  void PutEncoder(const std::string& script) {
    fs::remove("program/lame.exe");
    PutFile("program/lame.exe", "#!/bin/sh\n" + script + "\n");
    fs::permissions("program/lame.exe", fs::perms(0755));
  }

  void ExpectNotStarted(const std::vector<std::string>& operands, const std::string& why) {
    const auto before = Snapshot("program");
    const ProgramRun run = Update(operands);
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.output, "");
    EXPECT_THAT(run.errors, StartsWith("repvolta-update: "));
    EXPECT_THAT(run.errors, HasSubstr(why));
    EXPECT_EQ(Lines(run.errors).size(), 1U);
    EXPECT_EQ(Snapshot("program"), before);
    EXPECT_TRUE(fs::is_empty("player"));
  }
};

TEST_F(UpdateProgram, DoesNotStartWithoutSettings) {
  fs::remove("program/settings.dat");
  AddWorkout("Monday", "Squat");
  ExpectNotStarted({}, "settings.dat");
}

TEST_F(UpdateProgram, DoesNotStartWithoutAnOutputPath) {
  AddWorkout("Monday", "Squat");
  state.Settings.OutputPath = "   ";
  Save();
  ExpectNotStarted({}, "no Output file path has been specified");
}

TEST_F(UpdateProgram, DoesNotStartForAWorkoutThatDoesNotExist) {
  AddWorkout("Monday", "Squat");
  ExpectNotStarted({"Monday", "Someday"}, "Someday");
  ExpectNotStarted({"../program/workouts/Monday"}, "Monday");
  ExpectNotStarted({""}, "no workout");
}

TEST_F(UpdateProgram, TakesNoOtherOptions) {
  AddWorkout("Monday", "Squat");
  ExpectNotStarted({"--verbose"}, "--verbose is no workout");
  ExpectNotStarted({"Monday", "-x"}, "-x is no workout; usage: repvolta-update [WORKOUT ...]\n");
}

TEST_F(UpdateProgram, UpdatesEveryWorkoutInListOrder) {
  AddWorkout("tuesday", "Squat");
  AddWorkout("Monday", "Squat");

  const ProgramRun run = Update();

  EXPECT_EQ(run.status, 0) << run.output;
  EXPECT_EQ(run.errors, "");
  EXPECT_THAT(
      Lines(run.output),
      ElementsAre("Updating Workout Monday.RPV", "Created directory " + Full("player/Monday/"),
                  "RV001-Instructions.mp3 MP3 Instruction file created sucessfully.",
                  "RV001-Instructions.mp3  TAG modified OK", "", "UPDATE COMPLETE.",
                  "Updating Workout tuesday.RPV", "Created directory " + Full("player/tuesday/"),
                  "RV001-Instructions.mp3 MP3 Instruction file created sucessfully.",
                  "RV001-Instructions.mp3  TAG modified OK", "", "UPDATE COMPLETE."));
}

TEST_F(UpdateProgram, HasNothingToDoWithoutWorkouts) {
  const ProgramRun run = Update();
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output, "");
}

TEST_F(UpdateProgram, UpdatesOnlyTheNamedWorkouts) {
  for (const char* name : {"A", "B", "C"}) AddWorkout(name, "Squat");

  EXPECT_EQ(Update({"C.RPV", "a"}).status, 0);

  EXPECT_TRUE(fs::exists("player/A/A.M3U"));
  EXPECT_FALSE(fs::exists("player/B"));
  EXPECT_TRUE(fs::exists("player/C/C.M3U"));
}

TEST_F(UpdateProgram, EndsWithOneWhenALineIsAnError) {
  Begin("Monday");
  ExerciseRecord& exercise = AddExercise("Squat");
  exercise.NumberOfMusicFiles = 1;
  exercise.MusicFile[0] = "/gone.mp3";
  SaveBegun();

  const ProgramRun run = Update();

  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(Lines(run.output), Contains("ERROR: File not found. /gone.mp3"));
}

TEST_F(UpdateProgram, FindsItsDirectoryFromAnywhere) {
  AddWorkout("Monday", "Squat");
  fs::current_path("/");
  EXPECT_EQ(RunProgram(Full("program/repvolta-update")).status, 0);
  EXPECT_TRUE(fs::exists(Full("player/Monday/Monday.M3U")));
}

TEST_F(UpdateProgram, UsesTheUsersDataFolderWhereNoClipsLieBeside) {
  AddWorkout("Monday", "Squat");
  fs::create_directories("usr/bin");
  fs::rename("program/repvolta-update", "usr/bin/repvolta-update");
  fs::create_directories("usr/share/repvolta");
  fs::rename("program/voice", "usr/share/repvolta/voice");
  fs::create_directories("home/data");
  fs::rename("program", "home/data/repvolta");

  const ProgramRun run =
      RunProgram("usr/bin/repvolta-update", {}, {"XDG_DATA_HOME=" + Full("home/data")});

  EXPECT_EQ(run.status, 0) << run.errors;
  EXPECT_TRUE(fs::exists("player/Monday/RV001-Instructions.mp3"));
  EXPECT_TRUE(fs::exists("home/data/repvolta/voice/sets.wav"));
}

TEST_F(UpdateProgram, KeepsTheClipsThatTheUserHas) {
  fs::create_directories("usr/bin");
  fs::copy_file("program/repvolta-update", "usr/bin/repvolta-update");
  PutFile("usr/share/repvolta/voice/sets.wav", "new");
  PutFile("home/data/repvolta/voice/sets.wav", "own");
  fs::copy_file("program/settings.dat", "home/data/repvolta/settings.dat");

  EXPECT_EQ(
      RunProgram("usr/bin/repvolta-update", {}, {"XDG_DATA_HOME=" + Full("home/data")}).status, 0);

  EXPECT_EQ(GetTextFile("home/data/repvolta/voice/sets.wav"), "own");
}

TEST_F(UpdateProgram, SpeaksAnUnknownNameOnceAndKeepsTheClip) {
  AddWorkout("Monday", "Dwarf Tossing");
  const std::string warning =
      "WARNING: Exercise Instruction file NOT FOUND - voice/exercise/Dwarf Tossing.WAV    Computer "
      "voice file created.";

  const ProgramRun first = Update();
  const ProgramRun second = Update();

  EXPECT_EQ(first.status, 0);
  EXPECT_THAT(Lines(first.output), Contains(warning));
  EXPECT_THAT(Lines(second.output), Not(Contains(warning)));
  EXPECT_GT(fs::file_size("program/voice/exercise/Dwarf Tossing.WAV"), 10000U);
}

TEST_F(UpdateProgram, KeepsTheWavFileWithoutAnEncoder) {
  fs::remove("program/lame.exe");
  AddWorkout("Monday", "Squat");

  const ProgramRun run = Update();

  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(Lines(run.output),
              Contains("RV001-Instructions.WAV WAV Instruction file created sucessfully."));
  EXPECT_EQ(GetTextFile("player/Monday/Monday.M3U"),
            Full("player/Monday/RV001-Instructions.WAV\r\n"));
}

TEST_F(UpdateProgram, SaysSoWhenTheEncoderFails) {
  AddWorkout("Monday", "Squat");
  for (const char* script :
       {"exit 1", "exit 0", "kill -SEGV $$", "yes | head -c 5000000; exit 1", "cat; exit 1"}) {
    PutEncoder(script);
    const ProgramRun run = Update();
    EXPECT_EQ(run.status, 1) << script;
    EXPECT_THAT(Lines(run.output),
                Contains("ERROR: temp.mp3 could not be read: No such file or directory"))
        << script;
    EXPECT_FALSE(fs::exists("player/Monday/RV001-Instructions.mp3"));
    EXPECT_EQ(LastLine(run.output), "UPDATE COMPLETE.");
  }
}

TEST_F(UpdateProgram, SaysSoWhenTheEncoderCannotBeRun) {
  AddWorkout("Monday", "Squat");
  fs::remove("program/lame.exe");
  PutFile("program/lame.exe", "no program");
  EXPECT_EQ(Update().status, 1);
}

TEST_F(UpdateProgram, EndsAtTheNextStepWhenItIsInterrupted) {
  AddWorkout("Monday", "Squat");
  const Bytes before = GetFile("program/workouts/Monday.RPV");
  for (const int signal : {SIGINT, SIGTERM}) {
    PutEncoder("kill -" + std::to_string(signal) + " $PPID; exec sleep 50");
    const ProgramRun run = Update();
    EXPECT_EQ(run.status, 128 + signal);
    EXPECT_THAT(Lines(run.output), Not(Contains("UPDATE COMPLETE.")));
    EXPECT_EQ(GetFile("program/workouts/Monday.RPV"), before);
    EXPECT_FALSE(fs::exists("program/temp.wav"));
  }
}

TEST_F(UpdateProgram, SurvivesAReaderThatGoesAway) {
  AddWorkout("Monday", "Squat");
  EXPECT_EQ(RunProgram("sh", {"-c", "program/repvolta-update | head -n 1"}).status, 0);
  EXPECT_TRUE(fs::exists("player/Monday/Monday.M3U"));
}

TEST_F(UpdateProgram, SaysSoWhenItsLinesAreLost) {
  AddWorkout("Monday", "Squat");
  const ProgramRun run = RunProgram("sh", {"-c", "program/repvolta-update > /dev/full"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.errors, "repvolta-update: The progress lines could not be written\n");
  EXPECT_TRUE(fs::exists("player/Monday/Monday.M3U"));
}

TEST_F(UpdateProgram, TakesWorkoutFilesOfAnyContent) {
  PutFile("program/workouts/Empty.RPV", "");
  PutFile("program/workouts/Short.RPV", std::string(5000, 'x'));
  PutFile("program/workouts/Long.RPV", std::string(400000, ' '));
  PutFile("program/workouts/Zeros.RPV", std::string(266240, '\0'));
  std::string noise(266240, '\0');
  for (std::size_t i = 0; i < noise.size(); ++i) noise[i] = static_cast<char>(i * i * 31 + i / 7);
  PutFile("program/workouts/Noise.RPV", noise);

  const ProgramRun run = Update();

  EXPECT_TRUE(run.status == 0 || run.status == 1) << run.errors;
  EXPECT_THAT(Lines(run.output), Contains("UPDATE COMPLETE.").Times(5));
}

TEST_F(UpdateProgram, WarnsOfADamagedWorkoutAndUpdatesIt) {
  AddWorkout("A", "Squat");
  Begin("B");
  AddExercise("Squat").NumberOfMusicFiles = -1;
  SaveBegun();

  const ProgramRun run = Update();

  EXPECT_EQ(run.status, 0) << run.output;
  EXPECT_THAT(Lines(run.output),
              Contains("WARNING: B.RPV seems to be damaged: it holds numbers that no workout can "
                       "have.")
                  .Times(1));
  EXPECT_THAT(Lines(run.output), Contains(StartsWith("WARNING: ")).Times(1));
  EXPECT_THAT(Lines(run.output), Contains("UPDATE COMPLETE.").Times(2));
  EXPECT_TRUE(fs::exists("player/B/B.M3U"));
}

TEST_F(UpdateProgram, WarnsOfAWorkoutFileOfAnotherSizeAndUpdatesIt) {
  PutFile("program/workouts/A.RPV", "");
  AddWorkout("B", "Squat");
  fs::resize_file("program/workouts/B.RPV", 300000);

  const ProgramRun run = Update();

  EXPECT_EQ(run.status, 0) << run.output;
  const std::vector<std::string> lines = Lines(run.output);
  EXPECT_THAT(lines, Contains("WARNING: A.RPV has 0 bytes instead of 266240; what is missing was "
                              "filled up with blanks."));
  EXPECT_THAT(lines, Contains("WARNING: B.RPV has 300000 bytes instead of 266240; what is too much "
                              "was ignored."));
  EXPECT_TRUE(fs::exists("player/B/RV001-Instructions.mp3"));
  EXPECT_THAT(Lines(Update().output), Not(Contains(StartsWith("WARNING: "))));
}

TEST_F(UpdateProgram, GoesOnWhenAWorkoutCannotBeRead) {
  AddWorkout("A", "Squat");
  fs::create_symlink("gone", "program/workouts/B.RPV");
  AddWorkout("C", "Squat");
  EXPECT_EQ(Update().status, 0);
  EXPECT_TRUE(fs::exists("player/C/C.M3U"));
}

TEST_F(UpdateProgram, KeepsAWorkoutWhoseNameIsThatOfAnotherButForBlanks) {
  AddWorkout("A", "Squat");
  AddWorkout(" A", "Rowing");
  const Bytes before = GetFile("program/workouts/A.RPV");

  const ProgramRun run = Update({" A"});

  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.output, HasSubstr("It holds another workout, which was not loaded"));
  EXPECT_EQ(GetFile("program/workouts/A.RPV"), before);
}

TEST_F(UpdateProgram, TakesNamesOfAllKinds) {
  const std::string song = "Été – \"走れ\" & $(rm -rf x); `y` 'z' %s -o.mp3";
  PutFile("music/" + song, SongBytes(2));
  Begin("Früh 走 'n' \"spät\" $(x)");
  ExerciseRecord& exercise = AddExercise("Développé \"couché\" $(x); `y` %s 走");
  exercise.NumberOfMusicFiles = 1;
  exercise.MusicFile[0] = Full("music/" + song);
  SaveBegun();

  const ProgramRun run = Update();

  EXPECT_EQ(run.status, 0) << run.output;
  EXPECT_TRUE(fs::exists("player/Früh 走 'n' \"spät\" $(x)/RV002-" + song));
}

TEST_F(UpdateProgram, ShowsANameOnOneLineAndLetsItDoNothingToATerminal) {
  AddWorkout("Monday", "Squat\nUPDATE COMPLETE.\x1B[2J");
  const ProgramRun run = Update();
  EXPECT_THAT(run.output, Not(HasSubstr("\x1B")));
  EXPECT_THAT(Lines(run.output),
              Contains(HasSubstr("voice/exercise/Squat_UPDATE COMPLETE._[2J.WAV")));
  EXPECT_EQ(std::ranges::count(Lines(run.output), "UPDATE COMPLETE."), 1);
}

TEST_F(UpdateProgram, SaysSoWhenAPathIsTooLongForTheRecord) {
  const std::string song = std::string(250, 'x') + ".mp3";
  PutFile("music/" + song, SongBytes(2));
  Begin("Monday");
  ExerciseRecord& exercise = AddExercise("Squat");
  exercise.NumberOfMusicFiles = 1;
  exercise.MusicFile[0] = Full("music/" + song);
  SaveBegun();

  const ProgramRun run = Update();

  // The path is too long for the record: it was cut and names no file.
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.output, HasSubstr("ERROR: File not found. " + Full("music/xxx")));
}

TEST_F(UpdateProgram, LeavesEveryWorkoutWholeWhenItIsKilled) {
  Begin("Monday");
  for (const char* name : {"Squat", "Bench Press", "Deadlift"}) {
    ExerciseRecord& exercise = AddExercise(name);
    exercise.NumberOfSets = 1;
    exercise.SetIncrement1[0] = 1;
    exercise.SetFrequency1[0] = 1;
  }
  SaveBegun();
  const Bytes old = GetFile("program/workouts/Monday.RPV");

  for (int milliseconds = 0; milliseconds < 60; milliseconds += 3) {
    PutFile("program/workouts/Monday.RPV", old);
    RunProgram("program/repvolta-update", {}, {}, [&](long process) {
      std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
      kill(static_cast<pid_t>(process), SIGKILL);
    });
    const Bytes now = GetFile("program/workouts/Monday.RPV");
    EXPECT_EQ(now.size(), kWorkoutFileSize);
    const ExerciseSlots workout = DecodeWorkout(now);
    EXPECT_TRUE(now == old || workout[2].SetValue1[0] == 1);
  }
}

}  // namespace
}  // namespace repvolta
