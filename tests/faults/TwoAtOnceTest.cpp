#include <chrono>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <thread>

#include "faults/FaultWorld.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

/// False for a process that has ended, even if its exit status was not yet collected.
bool IsAlive(int process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/stat");
  std::string status;
  std::getline(file, status);
  return !status.empty() && status.find(") Z ") == std::string::npos &&
         status.find(") X ") == std::string::npos;
}

class TwoAtOnce : public FaultWorld {
 protected:
  TwoAtOnce() { LearnWhatIsRight(); }

  void PutEncoder(const std::string& script) {
    fs::remove("program/lame.exe");
    PutFile("program/lame.exe", "#!/bin/sh\n" + script + "\n");
    fs::permissions("program/lame.exe", fs::perms(0755));
  }
};

TEST_F(TwoAtOnce, TheSecondUpdateSaysSoAndChangesNothing) {
  // The encoder of the first update starts the second update.
  PutEncoder(
      "./repvolta-update Monday > ../second.out 2> ../second.err; echo $? > ../second.status");
  Update();
  EXPECT_EQ(GetTextFile("second.status").substr(0, 1), "2");
  EXPECT_EQ(GetTextFile("second.out"), "");
  EXPECT_EQ(GetTextFile("second.err"),
            "repvolta-update: Another update of " + Full("program/") + " is running\n");
}

TEST_F(TwoAtOnce, TheLockEndsWithItsProcessThoughAChildLives) {
  PutEncoder("trap '' TERM; kill -9 $PPID; sleep 0.1; exec sleep 50");
  EXPECT_EQ(Update().status, -1);
  PutEncoder("exit 0");
  EXPECT_NE(Update().status, 2);
}

TEST_F(TwoAtOnce, TheEncoderDiesWithTheProgram) {
  PutEncoder("echo $$ > ../encoder; kill -9 $PPID; exec sleep 50");
  EXPECT_EQ(Update().status, -1);
  const int encoder = std::stoi(GetTextFile("encoder"));
  const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (IsAlive(encoder) && std::chrono::steady_clock::now() < limit) std::this_thread::yield();
  EXPECT_FALSE(IsAlive(encoder));
}

}  // namespace
}  // namespace repvolta
