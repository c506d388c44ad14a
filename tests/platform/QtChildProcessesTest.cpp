#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include "platform/QtChildProcesses.h"

#include "support/ProgramsBeside.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

ChildCommand Dummy(std::vector<std::string> arguments) {
  return {.program = ProgramBeside("dummy_child"), .arguments = std::move(arguments)};
}

ChildResult RunDummy(std::vector<std::string> arguments) {
  return QtChildProcesses().Run(Dummy(std::move(arguments)));
}

ChildResult RunDummyFor(milliseconds limit, std::vector<std::string> arguments) {
  ChildCommand command = Dummy(std::move(arguments));
  command.limit = limit;
  return QtChildProcesses().Run(command);
}

/// Sets an environment variable until it is destroyed.
class Variable {
 public:
  Variable(const char* name, const std::string& value) : name_(name), before_(std::getenv(name)) {
    setenv(name, value.c_str(), 1);
  }
  ~Variable() { setenv(name_, before_.c_str(), 1); }

 private:
  const char* name_;
  std::string before_;
};

void PutProgram(const std::string& path) {
  if (fs::path(path).has_parent_path()) fs::create_directories(fs::path(path).parent_path());
  fs::copy_file(ProgramBeside("dummy_child"), path);
}

/// True when the process has ended, reaped or not.
bool HasEnded(pid_t process) {
  std::ifstream status("/proc/" + std::to_string(process) + "/stat");
  std::string number;
  std::string name;
  std::string state;
  return !(status >> number >> name >> state) || state == "Z" || state == "X";
}

/// The most memory that this process has had so far.
long LargestKibibytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

TEST(QtChildProcesses, ReportsTheExitCode) {
  const ChildResult result = RunDummy({"exit", "7"});
  EXPECT_EQ(result.end, ChildEnd::kExited);
  EXPECT_EQ(result.exitCode, 7);
}

TEST(QtChildProcesses, ReportsACrash) { EXPECT_EQ(RunDummy({"crash"}).end, ChildEnd::kCrashed); }

TEST(QtChildProcesses, KeepsTheOutputAndDropsTheComplaints) {
  EXPECT_EQ(RunDummy({"complain", "no", "say", "yes"}).output, "yes\n");
}

TEST(QtChildProcesses, KeepsTheOutputOfAProgramThatCrashes) {
  EXPECT_EQ(RunDummy({"say", "last words", "crash"}).output, "last words\n");
}

TEST(QtChildProcesses, PassesArgumentsAsTheyAre) {
  const std::string odd = "-x \"'; $(exit 3) `id` \\ é 😀 *";
  EXPECT_EQ(RunDummy({"say", odd}).output, odd + "\n");
  EXPECT_EQ(RunDummy({"say", ""}).output, "\n");
}

TEST(QtChildProcesses, RunsInTheCurrentDirectory) {
  TemporaryFolder folder;
  EXPECT_EQ(RunDummy({"here"}).output, folder.Path());
}

TEST(QtChildProcesses, GivesTheFileAsStandardInput) {
  TemporaryFolder folder;
  PutFile("in put", "words\nand more");
  ChildCommand command = Dummy({"echo"});
  command.inputFile = "in put";
  EXPECT_EQ(QtChildProcesses().Run(command).output, "words\nand more");
}

TEST(QtChildProcesses, GivesNoStandardInputOtherwise) {
  EXPECT_EQ(RunDummyFor(milliseconds(10000), {"echo", "exit", "3"}).exitCode, 3);
}

TEST(QtChildProcesses, DoesNotStartWhenTheInputIsMissing) {
  TemporaryFolder folder;
  ChildCommand command = Dummy({"echo"});
  command.inputFile = "gone";
  EXPECT_EQ(QtChildProcesses().Run(command).end, ChildEnd::kNotStarted);
}

TEST(QtChildProcesses, FindsAProgramInTheCurrentDirectoryFirstWhereThatIsMeant) {
  TemporaryFolder folder;
  PutProgram("lame.exe");
  PutProgram("elsewhere/lame.exe");
  Variable path("PATH", folder.Path() + "elsewhere");

  const ChildResult result =
      QtChildProcesses().Run({.program = "lame.exe",
                              .arguments = {"name"},
                              .place = ProgramPlace::kCurrentDirectoryThenPath});

  EXPECT_EQ(result.output, "./lame.exe\n");
}

TEST(QtChildProcesses, FindsAProgramOnThePathAlone) {
  TemporaryFolder folder;
  PutProgram("flite");
  PutProgram("elsewhere/flite");
  Variable path("PATH", ":" + folder.Path() + "elsewhere");

  const ChildResult result = QtChildProcesses().Run({.program = "flite", .arguments = {"name"}});

  EXPECT_EQ(result.output, folder.Path() + "elsewhere/flite\n");
}

TEST(QtChildProcesses, TakesNoEmptyPlaceOnThePathForTheCurrentDirectory) {
  TemporaryFolder folder;
  PutProgram("flite");
  for (const char* empty : {"", ":", "::/nowhere:"}) {
    Variable path("PATH", empty);
    EXPECT_EQ(QtChildProcesses().Run({.program = "flite", .arguments = {}}).end,
              ChildEnd::kNotStarted)
        << empty;
  }
}

TEST(QtChildProcesses, PassesOverWhatIsNoProgramOnItsWayThroughThePath) {
  TemporaryFolder folder;
  fs::create_directories("lame.exe");
  PutFile("first/lame.exe", "not to be executed");
  PutProgram("second/lame.exe");
  Variable path("PATH",
                folder.Path() + "none::" + folder.Path() + "first:" + folder.Path() + "second");

  const ChildResult result = QtChildProcesses().Run({.program = "lame.exe", .arguments = {"name"}});

  EXPECT_EQ(result.output, folder.Path() + "second/lame.exe\n");
}

TEST(QtChildProcesses, DoesNotStartWhatIsNoProgram) {
  TemporaryFolder folder;
  PutFile("empty.exe", "\1\2\3");
  fs::permissions("empty.exe", fs::perms(0755));
  fs::create_directory("folder");

  for (const char* program : {"", "no-such-program", "./gone", "./folder", "./empty.exe"}) {
    EXPECT_EQ(QtChildProcesses().Run({.program = program, .arguments = {}}).end,
              ChildEnd::kNotStarted)
        << program;
  }
}

TEST(QtChildProcesses, KillsAtTheLimit) {
  EXPECT_EQ(RunDummyFor(milliseconds(200), {"hang"}).end, ChildEnd::kKilledAtLimit);
}

TEST(QtChildProcesses, KillsAProgramThatWritesWithoutEnd) {
  EXPECT_EQ(RunDummyFor(milliseconds(200), {"flood", "9000000000000"}).end,
            ChildEnd::kKilledAtLimit);
}

TEST(QtChildProcesses, KillsWhatTheProgramHasStarted) {
  TemporaryFolder folder;
  RunDummyFor(milliseconds(500), {"offspring", "number", "hang"});

  const pid_t offspring = std::stoi(GetTextFile("number"));
  const auto patience = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (!HasEnded(offspring) && std::chrono::steady_clock::now() < patience) {
  }
  EXPECT_TRUE(HasEnded(offspring));
}

TEST(QtChildProcesses, DoesNotWaitForWhatTheProgramLeavesBehind) {
  TemporaryFolder folder;
  EXPECT_EQ(RunDummyFor(milliseconds(20000), {"offspring", "number"}).end, ChildEnd::kExited);
  kill(std::stoi(GetTextFile("number")), SIGKILL);
}

TEST(QtChildProcesses, WaitsForAProgramThatHasClosedItsOutput) {
  const ChildResult result = RunDummy({"mute", "nap", "200", "exit", "4"});
  EXPECT_EQ(result.exitCode, 4);
}

TEST(QtChildProcesses, RestsWhileItWaits) {
  for (const char* before : {"say", "mute"}) {
    const std::clock_t start = std::clock();
    RunDummy({before, "mute", "nap", "1000"});
    EXPECT_LT(std::clock() - start, CLOCKS_PER_SEC / 4) << before;
  }
}

TEST(QtChildProcesses, KeepsTheBeginningOfAFloodAndNoMore) {
  const long before = LargestKibibytes();

  const ChildResult result = RunDummy({"flood", "1000000000"});

  EXPECT_EQ(result.end, ChildEnd::kExited);
  EXPECT_EQ(result.output.size(), kChildOutputLimit);
  // A sanitizer keeps up to 256 MiB of freed memory.
  EXPECT_LT(LargestKibibytes() - before, 400 * 1024);
}

TEST(QtChildProcesses, CallsBackWhileItWaits) {
  int calls = 0;
  QtChildProcesses([&] { ++calls; }).Run(Dummy({"nap", "500"}));
  EXPECT_GE(calls, 2);
  EXPECT_LE(calls, 11);
}

TEST(QtChildProcesses, CallsBackWhileTheProgramWrites) {
  int calls = 0;
  ChildCommand command = Dummy({"flood", "9000000000000"});
  command.limit = milliseconds(500);
  QtChildProcesses([&] { ++calls; }).Run(command);
  EXPECT_GE(calls, 2);
  EXPECT_LE(calls, 11);
}

}  // namespace
}  // namespace repvolta
