#include <csignal>
#include <gmock/gmock.h>
#include <sys/wait.h>

#include "e2e/PortableProgram.h"
#include "support/PseudoTerminal.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::Each;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

struct TerminalRun {
  int status = -1;
  std::string text;                // all that was written to the terminal
  std::vector<std::string> shown;  // its lines at the end
};

/// The program on a terminal of 60 columns. The encoder takes its time.
class TerminalProgress : public PortableProgram {
 protected:
  TerminalProgress() {
    Begin("Monday");
    ExerciseRecord& exercise = AddExercise("Squat");
    PutFile("music/A song with a name that is much longer than the terminal is wide.mp3",
            SongBytes(40000));
    exercise.MusicFile[exercise.NumberOfMusicFiles++] =
        Full("music/A song with a name that is much longer than the terminal is wide.mp3");
    SaveBegun();
    AddWorkout("Tuesday", "Squat");
  }

  /// Both streams are the terminal.
  static TerminalRun Run(const std::string& commandLine) {
    PseudoTerminal terminal(60);
    const pid_t child = fork();
    if (child == 0) {
      dup2(terminal.Number(), STDOUT_FILENO);
      dup2(terminal.Number(), STDERR_FILENO);
      execl("/bin/sh", "sh", "-c", ("exec " + commandLine).c_str(), nullptr);
      _exit(127);
    }
    TerminalRun run;
    run.text = terminal.ReadToEnd();
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFEXITED(status)) run.status = WEXITSTATUS(status);
    run.shown = ShownLines(run.text);
    return run;
  }

  static std::vector<std::string> PartsOf(const std::string& text) {
    std::vector<std::string> parts(1);
    for (const char byte : text) {
      if (byte == '\r' || byte == '\n') {
        parts.emplace_back();
      } else {
        parts.back() += byte;
      }
    }
    return parts;
  }

  void PutEncoder(const std::string& script) {
    fs::remove("program/lame.exe");
    PutFile("program/lame.exe", "#!/bin/sh\n" + script + "\n");
    fs::permissions("program/lame.exe", fs::perms(0755));
  }
};

TEST_F(TerminalProgress, IsOneLineThatIsRewrittenAndCleared) {
  const TerminalRun run = Run("program/repvolta-update");
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(PartsOf(run.text), Contains("0 %: Instruction of Squat"));
  EXPECT_THAT(PartsOf(run.text), Contains(HasSubstr(" %: A song with a name")));
  EXPECT_THAT(PartsOf(run.text), Contains("100 %"));
  // On a screen only the lines of the log are left.
  std::vector<std::string> lines = run.shown;
  ASSERT_EQ(lines.back(), "");
  lines.pop_back();
  EXPECT_THAT(lines, Each(Not(HasSubstr("%"))));
  EXPECT_EQ(lines.back(), "UPDATE COMPLETE.");
}

TEST_F(TerminalProgress, FitsTheTerminal) {
  const TerminalRun run = Run("program/repvolta-update");
  for (const std::string& part : PartsOf(run.text)) {
    if (part.find(" %") == std::string::npos) continue;
    EXPECT_LT(part.size(), 60U) << part;
  }
}

TEST_F(TerminalProgress, IsOfAllWorkouts) {
  const std::vector<std::string> parts = PartsOf(Run("program/repvolta-update").text);
  const auto whole = std::find(parts.begin(), parts.end(), "100 %");
  EXPECT_NE(std::find(parts.begin(), whole, "Updating Workout Tuesday.RPV"), whole);
}

TEST_F(TerminalProgress, IsTheOnlyTextOnStandardErrorAndOnlyThere) {
  const TerminalRun run = Run("program/repvolta-update >lines");
  EXPECT_THAT(PartsOf(run.text), Contains("100 %"));
  EXPECT_EQ(run.shown, std::vector<std::string>(1));
  EXPECT_THAT(GetTextFile("lines"), Not(HasSubstr("%")));
  EXPECT_THAT(GetTextFile("lines"), Not(HasSubstr("\r")));
}

TEST_F(TerminalProgress, IsNotWrittenWhereStandardErrorIsNoTerminal) {
  const TerminalRun run = Run("program/repvolta-update 2>errors");
  EXPECT_THAT(run.text, Not(HasSubstr("%")));
  EXPECT_EQ(GetTextFile("errors"), "");
}

TEST_F(TerminalProgress, IsClearedWhenTheUpdateIsInterrupted) {
  for (const int signal : {SIGINT, SIGTERM}) {
    PutEncoder("kill -" + std::to_string(signal) + " $PPID; exec sleep 50");
    const TerminalRun run = Run("program/repvolta-update");
    EXPECT_EQ(run.status, 128 + signal);
    EXPECT_THAT(PartsOf(run.text), Contains("0 %: Instruction of Squat"));
    ASSERT_GE(run.shown.size(), 3U);
    EXPECT_EQ(run.shown.back(), "");
    EXPECT_THAT(run.shown, Contains("STOPPED: Tuesday.RPV is not updated."));
    EXPECT_THAT(run.shown, Contains(StartsWith("STOPPED: 0 of 2 files are on the player")));
    EXPECT_THAT(run.shown, Each(Not(HasSubstr("%"))));
  }
}

}  // namespace
}  // namespace repvolta
