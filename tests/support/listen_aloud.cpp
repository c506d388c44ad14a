#include <QGuiApplication>
#include <QSocketNotifier>
#include <atomic>
#include <cstdlib>
#include <dlfcn.h>
#include <iostream>
#include <pulse/stream.h>
#include <sstream>

#include "app/RecordFormat.h"
#include "app/Settings.h"
#include "app/WorkoutFiles.h"
#include "editing/Listening.h"
#include "platform/QtChildProcesses.h"
#include "platform/desktop/DesktopAudioOutputs.h"
#include "platform/desktop/DesktopSoundPlayer.h"
#include "speech/EngineBackgroundSpeech.h"
#include "speech/EngineSpeech.h"

// Listens to a workout by the machine's sound system:
//   listen_aloud PROGRAM_DIRECTORY WORKOUT OUTPUT
// Obeys the lines "play NUMBER", "next" and "stop", and prints a line for each change; ends with
// its standard input.
// The sound system takes only so many pieces of the sound as REPVOLTA_SOUND_PIECES says, if it is
// set, and refuses the others, as it does when it ends at that moment.

namespace repvolta {
namespace {

bool TakesPiece() {
  static const char* const pieces = std::getenv("REPVOLTA_SOUND_PIECES");
  static std::atomic<long> left = pieces == nullptr ? 0 : std::strtol(pieces, nullptr, 10);
  return pieces == nullptr || left-- > 0;
}

struct Services {
  SystemClock clock;
  TimerSeededNumbers random;
  QtChildProcesses processes;
  EngineSpeech speech{InstalledEngines(processes)};
  DesktopSoundPlayer player;
  EngineBackgroundSpeech background{
      [](ChildProcesses& own) { return std::make_unique<EngineSpeech>(InstalledEngines(own)); }};
};

ChosenOutput Find(const std::string& name) {
  const std::vector<std::string> names = DesktopAudioOutputs().Names();
  const auto found = std::find(names.begin(), names.end(), name);
  return {static_cast<int>(found - names.begin()), name};
}

void Obey(Listening& listening, const std::string& line) {
  std::istringstream words(line);
  std::string command;
  int number = 0;
  words >> command >> number;
  try {
    if (command == "play") listening.Play(number);
    if (command == "next") listening.PlayNext();
    if (command == "stop") listening.Stop();
  } catch (const std::exception& error) {
    std::cout << "refused: " << error.what() << std::endl;
  }
}

void Print(const Listening& listening) {
  const std::optional<int> heard = listening.Heard();
  std::cout << (heard ? "heard " + std::to_string(*heard) : "quiet") << ": " << listening.Notice()
            << std::endl;
}

int Run(const std::string& directory, const std::string& workout, const std::string& output) {
  ProgramState state;
  state.ProgramDirectory = directory;
  MakeProgramDirectoryCurrent(state);
  state.Settings.IncludeWeightValues = kTrue;
  state.WorkoutFileName = workout;
  LoadWorkout(state);
  Services services;
  Program program{state, services.clock, services.random, services.processes, services.speech};
  Listening listening(program, {.player = services.player,
                                .speech = services.background,
                                .output = [output] { return Find(output); },
                                .current = [] { return 0; }});
  const Listening::Watch watch = listening.OnChange([&] { Print(listening); });
  QSocketNotifier input(0, QSocketNotifier::Read);
  QObject::connect(&input, &QSocketNotifier::activated, [&] {
    std::string line;
    if (std::getline(std::cin, line)) return Obey(listening, line);
    QCoreApplication::quit();
  });
  return QCoreApplication::exec();
}

}  // namespace
}  // namespace repvolta

// NOLINTNEXTLINE(readability-function-size): the sound system's library says which parameters.
int pa_stream_write(pa_stream* stream, const void* data, size_t size, pa_free_cb_t release,
                    int64_t offset, pa_seek_mode_t seek) {
  static const auto real =
      reinterpret_cast<decltype(&pa_stream_write)>(dlsym(RTLD_NEXT, "pa_stream_write"));
  return repvolta::TakesPiece() ? real(stream, data, size, release, offset, seek) : -1;
}

int main(int argc, char** argv) {
  QGuiApplication application(argc, argv);
  return argc == 4 ? repvolta::Run(argv[1], argv[2], argv[3]) : 2;
}
