#include <QGuiApplication>
#include <QSocketNotifier>
#include <iostream>
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

namespace repvolta {
namespace {

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

int main(int argc, char** argv) {
  QGuiApplication application(argc, argv);
  return argc == 4 ? repvolta::Run(argv[1], argv[2], argv[3]) : 2;
}
