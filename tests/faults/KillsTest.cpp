#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <random>
#include <set>
#include <thread>

#include "app/RecordFormat.h"

#include "faults/FaultWorld.h"
#include "support/ProgramsBeside.h"

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

  /// Waits until the workout differs from `before`.
  static void WaitForAnEdit(const Bytes& before) {
    for (int i = 0; i < 60'000; ++i) {
      if (GetFile("workouts/Monday.RPV") != before) return;
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    ADD_FAILURE() << "no edit was saved within a minute";
  }

  /// After a kill every file is the old or the new one, and the next update succeeds and leaves
  /// nothing behind.
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
  const int step = PointStep(9);
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
  EXPECT_GE(points * step, 270);
}

TEST_F(Kills, WhileANameIsSpokenLeaveNothingBehindTheNextUpdate) {
  MakeMondaySpeak();
  LearnWhatIsRight();
  const int step = PointStep(25);
  for (int number = 1;; number += step) {
    Reset();
    const Fault kill{.group = "any", .number = number, .failure = "KILL"};
    SCOPED_TRACE(kill.Text());
    if (!RunWith(kill).hit) break;
    ExpectRecovery();
    EXPECT_TRUE(fs::is_empty("tmp"));
  }
}

TEST_F(Kills, AtRandomMomentsLoseNothing) {
  LearnWhatIsRight();
  const int kills = IsLongRun() ? 500 : 40 / PointStep(1);
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

TEST_F(Kills, AmidstEditsLeaveAWholeEdit) {
  fs::current_path("program");
  const int kills = IsLongRun() ? 500 : 40 / PointStep(1);
  std::mt19937 random(1789);
  std::uniform_int_distribution<int> microseconds(0, 30'000);
  std::set<std::string> left;
  const Bytes oldSettings = GetFile("settings.dat");
  for (int i = 0; i < kills; ++i) {
    SCOPED_TRACE(i);
    const bool isEarly = i % 4 == 0;
    const ProgramRun run =
        RunProgram(ProgramBeside("engine_steps"), {"edit"}, Surroundings(), [&](long process) {
          if (!isEarly) WaitForAnEdit(GetFile("workouts/Monday.RPV"));
          std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random)));
          kill(static_cast<pid_t>(process), SIGKILL);
        });
    EXPECT_EQ(run.status, -1) << run.errors;
    const Bytes file = GetFile("workouts/Monday.RPV");
    EXPECT_EQ(file.size(), kWorkoutFileSize);
    const ExerciseSlots workout = DecodeWorkout(file);
    if (file != oldWorkout) {
      for (int j = 1; j < MaxExercises; ++j) EXPECT_TRUE(workout[j] == workout[0]) << j;
    }
    const Bytes settingsFile = GetFile("settings.dat");
    const SettingsRecord settings = DecodeSettings(settingsFile);
    EXPECT_TRUE(settings.MusicPath == settings.OutputPath || settingsFile == oldSettings);
    left.insert(workout[0].ExerciseName.Text());
    for (const auto& entry : fs::directory_iterator("workouts")) {
      const std::string name = entry.path().filename();
      EXPECT_TRUE(name == "Monday.RPV" || name == "Tuesday.RPV" || name == ".Monday.RPV.new");
    }
  }
  std::printf("[  POINTS  ] %d kills amidst edits, %zu different edits were left\n", kills,
              left.size());
  // Every kill, except for early ones, hit a different edit.
  EXPECT_GE(left.size(), static_cast<std::size_t>(kills - (kills + 3) / 4));
}

}  // namespace
}  // namespace repvolta
