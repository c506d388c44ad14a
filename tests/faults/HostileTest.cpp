#include <algorithm>
#include <filesystem>
#include <gmock/gmock.h>
#include <sys/stat.h>

#include "app/RecordFormat.h"
#include "app/Settings.h"
#include "app/WorkoutFiles.h"

#include "faults/FaultWorld.h"
#include "support/Mp3Bytes.h"
#include "support/ProgramsBeside.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::HasSubstr;
using testing::Not;

class Hostile : public FaultWorld {
 protected:
  Hostile() {
    LearnWhatIsRight();
    Reset();
  }

  /// Replaces the encoder by a script.
  void PutEncoder(const std::string& script) {
    fs::remove_all("program/lame.exe");
    PutFile("program/lame.exe", "#!/bin/sh\n" + script + "\n");
    fs::permissions("program/lame.exe", fs::perms(0755));
  }

  void SaveMonday() {
    ReplaceWorkoutFile(state);
    SaveWorkout(state);
    fs::current_path(folder.Path());
  }

  void ExpectPreciousIsWhole() {
    EXPECT_EQ(GetTextFile("precious/diary.txt"), "mine");
    EXPECT_EQ(Look("precious").size(), 1U);
  }

  /// The programs that an update started.
  std::vector<std::string> Started() {
    std::vector<std::string> programs;
    const FaultyRun run = RunWith({.group = "open", .number = 1'000'000, .failure = "EIO"});
    EXPECT_EQ(run.run.status, 0) << run.run.output << run.run.errors;
    for (const std::string& line : run.trace) {
      if (line.starts_with("exec ")) programs.push_back(line.substr(line.find(" ok ") + 4));
    }
    return programs;
  }
};

/// Names that a shell, a formatter, an option parser or a path could misinterpret.
const std::vector<std::string> kNames = {"$(touch pwned)",
                                         "`touch pwned`",
                                         "a;touch pwned",
                                         "a|touch pwned",
                                         "a&touch pwned",
                                         "a > pwned",
                                         "'quoted'",
                                         "\"quoted\"",
                                         "%s%n%x",
                                         "-o pwned",
                                         "--help",
                                         "..",
                                         "...",
                                         "~",
                                         "*",
                                         "a\\b",
                                         "\xFF\xFE invalid",
                                         "\xC3",
                                         "\x80\x81",
                                         "tab\there",
                                         "line\nbreak",
                                         "line\r\nbreak",
                                         std::string(200, 'x'),
                                         std::string(251, 'x'),
                                         "  blanks  ",
                                         "\xE8\xB5\xB0\xE3\x82\x8C"};

TEST_F(Hostile, ExerciseNamesStartNoShellAndMakeNoFilesElsewhere) {
  for (std::string name : kNames) {
    Reset();
    name.resize(std::min<std::size_t>(name.size(), 40));
    state.Workout[0].ExerciseName = name + "/../../../precious/x";
    state.Workout[1].ExerciseName = name;
    SaveMonday();
    PutEncoder("exec /bin/true");
    const ProgramRun run = Update();
    EXPECT_TRUE(run.status == 0 || run.status == 1) << name << run.errors;
    EXPECT_FALSE(fs::exists("pwned") || fs::exists("program/pwned")) << name;
    ExpectPreciousIsWhole();
  }
}

TEST_F(Hostile, WorkoutNamesStayInTheOutputFolder) {
  for (const std::string& name : kNames) {
    PutFile("program/workouts/" + name + ".RPV", oldWorkout);
    const ProgramRun run = Update({name[0] == '-' ? "./" + name : name});
    EXPECT_TRUE(run.status >= 0 && run.status <= 2) << name << run.errors;
    fs::remove("program/workouts/" + name + ".RPV");
    EXPECT_FALSE(fs::exists("pwned") || fs::exists("program/pwned")) << name;
    ExpectPreciousIsWhole();
    EXPECT_EQ(Look("music").size(), 2U) << name;
    fs::remove_all("player");
    fs::create_directory("player");
  }
}

TEST_F(Hostile, AllWorkoutsAreUpdatedWhateverTheirNames) {
  for (const std::string& name : kNames) PutFile("program/workouts/" + name + ".RPV", oldWorkout);
  const ProgramRun run = Update({});
  EXPECT_TRUE(run.status == 0 || run.status == 1) << run.errors;
  EXPECT_EQ(Look("music").size(), 2U);
  EXPECT_FALSE(fs::exists("pwned") || fs::exists("program/pwned"));
  ExpectPreciousIsWhole();
  for (const auto& [path, entry] : Look(".")) {
    EXPECT_TRUE(path.starts_with("program") || path.starts_with("player") ||
                path.starts_with("music") || path.starts_with("precious") ||
                path.starts_with("bin") || path == "tmp")
        << path;
  }
}

TEST_F(Hostile, MusicNamesAreCopiedAsTheyAre) {
  for (const std::string& name : kNames) {
    const std::string song = "music/" + name + ".mp3";
    PutFile(song, Mp3Bytes().Frames(3));
    state.Workout[1].MusicFile[0] = Full(song);
    SaveMonday();
    const std::string content = GetTextFile(song);
    const ProgramRun run = Update();
    // A workout cannot keep bytes that are not UTF-8.
    EXPECT_TRUE(run.status == 0 || run.status == 1) << name << run.errors;
    EXPECT_EQ(GetTextFile(song), content);
    // A copy's name has no blanks at its ends.
    const std::string copy = "RV004-" + std::string(TrimBlanks(name + ".mp3"));
    EXPECT_TRUE(run.status == 1 || fs::exists("player/Monday/" + copy)) << name;
    EXPECT_FALSE(fs::exists("pwned") || fs::exists("program/pwned")) << name;
  }
}

TEST_F(Hostile, APathWithALineBreakStaysOutOfThePlayList) {
  const std::string song = Full("music/a\nb.mp3");
  PutFile(song, Mp3Bytes().Frames(3));
  state.Workout[1].MusicFile[0] = song;
  SaveMonday();

  const ProgramRun run = Update();

  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.output, HasSubstr("there is a line break in it"));
  EXPECT_THAT(Lines(GetTextFile("player/Monday/Monday.M3U")), Each(Not(HasSubstr("b.mp3"))));
}

TEST_F(Hostile, APathWithALineBreakStaysOutOfTheMusicList) {
  PutFile("music/a\nb.mp3", Mp3Bytes().Frames(3));
  PutFile("music/c\rd.mp3", Mp3Bytes().Frames(3));
  fs::current_path("program");
  ASSERT_EQ(RunProgram(ProgramBeside("engine_steps"), {"compile"}).status, 0);
  const std::string list = GetTextFile("musiclist.txt");
  EXPECT_EQ(Lines(list).size(), 2U);
  EXPECT_THAT(list, AllOf(HasSubstr("song.mp3"), HasSubstr("drawn.mp3")));
}

TEST_F(Hostile, ANulInAWorkoutEndsNothingElse) {
  Bytes file = oldWorkout;
  const std::string name = "Squat";
  const auto at = std::search(file.begin(), file.end(), name.begin(), name.end());
  ASSERT_NE(at, file.end());
  at[2] = 0;
  PutFile("program/workouts/Monday.RPV", file);
  const ProgramRun run = Update();
  EXPECT_TRUE(run.status == 0 || run.status == 1) << run.errors;
  EXPECT_EQ(LastLine(run.output), "UPDATE COMPLETE.");
  ExpectPreciousIsWhole();
}

TEST_F(Hostile, OnlyTheEncoderIsStartedAndNoShell) {
  for (const std::string& program : Started()) EXPECT_EQ(program, "./lame.exe");
  EXPECT_EQ(Started().size(), 2U);
}

TEST_F(Hostile, SpeechStartsOnlyTheEngine) {
  state.Workout[0].ExerciseName = "$(touch pwned)";
  SaveMonday();
  const std::vector<std::string> started = Started();
  EXPECT_GE(started.size(), 3U);
  for (const std::string& program : started) {
    EXPECT_TRUE(program == "./lame.exe" || program.ends_with("/flite") ||
                program.ends_with("/espeak-ng"))
        << program;
  }
  EXPECT_TRUE(fs::is_empty("tmp"));
}

TEST_F(Hostile, LinksInPlaceOfTemporaryFilesAreNotWrittenThrough) {
  for (const char* name : {"program/temp.wav", "program/temp.mp3", "program/.settings.dat.new",
                           "program/workouts/.Monday.RPV.new", "program/.musiclist.txt.new"}) {
    fs::create_symlink(Full("precious/diary.txt"), name);
  }
  EXPECT_EQ(Update().status, 0);
  fs::current_path("program");
  EXPECT_EQ(RunProgram(ProgramBeside("engine_steps"), {"save"}).status, 0);
  EXPECT_EQ(RunProgram(ProgramBeside("engine_steps"), {"compile"}).status, 0);
  fs::current_path(folder.Path());
  ExpectPreciousIsWhole();
  ExpectNoTemporaryFiles();
}

TEST_F(Hostile, LinksInPlaceOfFilesAreReplacedAndNotWrittenThrough) {
  for (const char* name :
       {"program/settings.dat", "program/musiclist.txt", "program/workouts/Monday.RPV"}) {
    const std::string kept = Full("precious/") + fs::path(name).filename().string();
    fs::rename(name, kept);
    fs::create_symlink(kept, name);
  }
  const Entries before = Look("precious");

  EXPECT_EQ(Update().status, 0);
  fs::current_path("program");
  EXPECT_EQ(RunProgram(ProgramBeside("engine_steps"), {"save"}).status, 0);
  EXPECT_EQ(RunProgram(ProgramBeside("engine_steps"), {"compile"}).status, 0);

  fs::current_path(folder.Path());
  EXPECT_TRUE(Look("precious") == before);
  EXPECT_FALSE(fs::is_symlink("program/workouts/Monday.RPV"));
}

TEST_F(Hostile, ALinkInPlaceOfTheLockIsRefused) {
  fs::remove("program/update.lock");
  fs::create_symlink(Full("precious/diary.txt"), "program/update.lock");
  const ProgramRun run = Update();
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.errors, HasSubstr("update.lock"));
  ExpectPreciousIsWhole();
}

TEST_F(Hostile, FoldersInPlaceOfTemporaryFilesAreToldAndLeft) {
  for (const char* name : {"temp.wav", "temp.mp3"}) {
    PutFile(std::string("program/") + name + "/kept", "x");
    const ProgramRun run = Update();
    EXPECT_EQ(run.status, 1) << name;
    EXPECT_THAT(run.output, HasSubstr(std::string("ERROR: ") + name)) << name;
    EXPECT_EQ(LastLine(run.output), "UPDATE COMPLETE.");
    EXPECT_TRUE(fs::exists(std::string("program/") + name + "/kept"));
    fs::remove_all(std::string("program/") + name);
  }
}

TEST_F(Hostile, TemporaryFilesOfSpeechLieInAPrivateFolder) {
  state.Workout[0].ExerciseName = "Never Spoken";
  SaveMonday();
  PutFile("bin/flite",
          "#!/bin/sh\n[ \"$1\" = -lv ] && exec echo rms\nls -ldn \"$TMPDIR\"/* \"$TMPDIR\"/*/* >"
          "../seen\nexit 1\n");
  EXPECT_EQ(Update().status, 1);
  const std::vector<std::string> seen = Lines(GetTextFile("seen"));
  EXPECT_THAT(seen, Contains(testing::StartsWith("drwx------ ")));
  EXPECT_TRUE(fs::is_empty("tmp"));
}

TEST_F(Hostile, EncodersThatAreNoneAreTold) {
  const std::map<std::string, std::function<void()>> encoders = {
      {"not executable",
       [&] {
         PutEncoder("exit 0");
         fs::permissions("program/lame.exe", fs::perms(0644));
       }},
      {"floods", [&] { PutEncoder("head -c 50000000 /dev/zero; head -c 50000000 /dev/zero >&2"); }},
      {"waits for input", [&] { PutEncoder("read line; read line; exit 1"); }},
      {"crashes", [&] { PutEncoder("kill -SEGV $$"); }},
      {"writes a folder", [&] { PutEncoder("mkdir temp.mp3"); }},
      {"writes a link", [&] { PutEncoder("ln -s ../precious/diary.txt temp.mp3"); }},
      {"writes nothing", [&] { PutEncoder(": > temp.mp3"); }}};
  for (const auto& [kind, put] : encoders) {
    SCOPED_TRACE(kind);
    Reset();
    put();
    const ProgramRun run = Update();
    EXPECT_TRUE(run.status == 1 || kind.starts_with("writes")) << run.status << run.output;
    EXPECT_EQ(LastLine(run.output), "UPDATE COMPLETE.");
    ExpectPreciousIsWhole();
    fs::remove_all("program/temp.mp3");
  }
}

TEST_F(Hostile, AFolderInPlaceOfTheEncoderIsNoEncoder) {
  fs::remove("program/lame.exe");
  fs::create_directory("program/lame.exe");
  EXPECT_EQ(Update().status, 0);
  EXPECT_TRUE(fs::exists("player/Monday/RV001-Instructions.WAV"));
}

}  // namespace
}  // namespace repvolta
