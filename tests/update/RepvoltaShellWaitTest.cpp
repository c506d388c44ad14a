#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "update/RepvoltaShellWait.h"

#include "fakes/FakeServices.h"

namespace repvolta {
namespace {

using testing::ElementsAre;

TEST(ShellWait, PartsTheCommandLineAtBlanks) {
  FakeProcesses processes;
  ShellWait(processes, "lame.exe  -V4 a b", 0);
  EXPECT_THAT(processes.started, ElementsAre("lame.exe -V4 a b"));
}

TEST(ShellWait, NeedsNoWindowState) {
  FakeProcesses processes;
  ShellWait(processes, "lame.exe");
  EXPECT_THAT(processes.started, ElementsAre("lame.exe"));
}

TEST(ShellWait, LooksForTheProgramInTheCurrentDirectoryFirst) {
  FakeProcesses processes;
  ProgramPlace place = ProgramPlace::kPath;
  processes.run = [&](const ChildCommand& command) { place = command.place; };
  ShellWait(processes, "lame.exe -V4");
  EXPECT_EQ(place, ProgramPlace::kCurrentDirectoryThenPath);
}

}  // namespace
}  // namespace repvolta
