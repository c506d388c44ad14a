// Updates all workouts of the current program directory again and again in one process, as the
// window does, and compares memory and open files at the beginning and at the end.

#include <QCoreApplication>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <malloc.h>
#include <string>
#include <unistd.h>

#include "app/Settings.h"
#include "app/WorkoutFiles.h"
#include "editing/UpdateCommands.h"
#include "platform/QtChildProcesses.h"
#include "platform/RandomNumbers.h"
#include "speech/EngineSpeech.h"
#include "update/RandomMusicList.h"

#include "fakes/RecordingWindow.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

constexpr int kWarmUp = 20;
constexpr long kAllowedGrowth = 256;  // kB, for the allocator's normal variation

struct Use {
  long memory = 0;  // kB
  std::ptrdiff_t files = 0;
};

Use UseNow() {
  // How much freed memory the allocator keeps at a moment is its own affair.
  malloc_trim(0);
  std::ifstream statm("/proc/self/statm");
  long all = 0;
  long resident = 0;
  statm >> all >> resident;
  statm.close();
  const auto files = std::distance(fs::directory_iterator("/proc/self/fd"), {});
  return {resident * sysconf(_SC_PAGESIZE) / 1024, files};
}

class Updates {
 public:
  Updates() {
    state_.ProgramDirectory = fs::current_path().string() + "/";
    LoadSettings(state_);
    LoadWorkoutNames(state_);
    CountRandomMusicFiles(state_);
  }

  /// False when a line reported an error.
  bool Run() {
    state_.WorkoutFileName = state_.WorkoutNames.at(0);
    UpdateAllWorkoutsButton_Click(editor_);
    const bool isRight =
        screen_.log.size() > 1 && screen_.log.back() == "UPDATE COMPLETE." &&
        std::none_of(screen_.log.begin(), screen_.log.end(),
                     [](const std::string& line) { return line.starts_with("ERROR"); });
    screen_.calls.clear();
    screen_.messages.clear();
    screen_.results.clear();
    return isRight;
  }

 private:
  ProgramState state_;
  RecordingWindow screen_;
  SystemClock clock_;
  TimerSeededNumbers random_;
  QtChildProcesses processes_;
  EngineSpeech speech_{InstalledEngines(processes_)};
  Program program_{state_, clock_, random_, processes_, speech_};
  Editor editor_ = screen_.EditorOf(program_);
};

int Soak(int runs) {
  Updates updates;
  for (int i = 0; i < kWarmUp; ++i) updates.Run();
  const Use before = UseNow();
  for (int i = 0; i < runs; ++i) {
    if (!updates.Run()) {
      std::fprintf(stderr, "update %d went wrong\n", i);
      return 1;
    }
  }
  const Use after = UseNow();
  std::printf("[  POINTS  ] %d updates in one process: %ld kB, then %ld kB; %td files, then %td\n",
              runs, before.memory, after.memory, before.files, after.files);
  return after.memory - before.memory <= kAllowedGrowth && after.files == before.files ? 0 : 1;
}

}  // namespace
}  // namespace repvolta

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  try {
    return repvolta::Soak(argc == 2 ? std::stoi(argv[1]) : 1);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
