#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <random>
#include <thread>

#include "faults/FaultWorld.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

class Kills : public FaultWorld {
 protected:
  int MicrosecondsOfAnUpdate() {
    Reset();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(Update().status, 0);
    const auto time = std::chrono::steady_clock::now() - start;
    return static_cast<int>(std::chrono::duration_cast<std::chrono::microseconds>(time).count());
  }

  /// After a kill all is old or new, and the next update ends well and leaves nothing behind.
  void ExpectRecovery() {
    ExpectNothingLost();
    const ProgramRun run = Update();
    EXPECT_EQ(run.status, 0) << run.output << run.errors;
    ExpectNothingLost();
    for (const auto& [path, entry] : Look("program")) {
      EXPECT_FALSE(path.ends_with(".new") || path.starts_with("temp.")) << path << " is left";
    }
  }
};

TEST_F(Kills, BeforeAnyCallLoseNothing) {
  LearnWhatIsRight();
  const int step = IsLongRun() ? 1 : 9;
  int points = 0;
  for (int number = 1;; number += step) {
    Reset();
    const Fault kill{.group = "any", .number = number, .failure = "KILL"};
    SCOPED_TRACE(kill.Text());
    const FaultyRun faulty = RunWith(kill);
    if (!faulty.hit) break;
    EXPECT_EQ(faulty.run.status, -1);
    ExpectRecovery();
    ++points;
  }
  std::printf("[  POINTS  ] killed before %d different calls\n", points);
  EXPECT_GE(points, 30);
}

TEST_F(Kills, AtRandomMomentsLoseNothing) {
  LearnWhatIsRight();
  const int kills = IsLongRun() ? 500 : 40;
  int early = 0;
  std::mt19937 random(2007);
  std::uniform_int_distribution<int> microseconds(0, MicrosecondsOfAnUpdate());
  for (int i = 0; i < kills; ++i) {
    Reset();
    SCOPED_TRACE(i);
    const ProgramRun run =
        RunProgram("program/repvolta-update", {"Monday"}, Surroundings(), [&](long process) {
          std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random)));
          kill(static_cast<pid_t>(process), SIGKILL);
        });
    if (run.status == -1) ++early;
    ExpectRecovery();
  }
  std::printf("[  POINTS  ] %d random kills, %d before the end of the update\n", kills, early);
}

}  // namespace
}  // namespace repvolta
