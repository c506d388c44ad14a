#include <QCoreApplication>
#include <cerrno>
#include <csignal>
#include <iostream>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

#include "app/Options.h"
#include "app/ProblemCount.h"
#include "app/ProgramDirectory.h"
#include "app/Settings.h"
#include "app/UserFolders.h"
#include "app/Voice.h"
#include "app/WorkoutDamage.h"
#include "app/WorkoutFiles.h"
#include "base/File.h"
#include "base/FileError.h"
#include "base/FileStatus.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "keeping/PendingRestore.h"
#include "platform/QtChildProcesses.h"
#include "platform/TerminalLine.h"
#include "player/OutputPath.h"
#include "player/PlayerDisk.h"
#include "speech/EngineSpeech.h"
#include "update/ChosenWorkouts.h"
#include "update/DryRun.h"
#include "update/PlanJson.h"
#include "update/PlanText.h"
#include "update/Program.h"
#include "update/RandomMusicList.h"
#include "update/RestoreAtStart.h"
#include "update/Room.h"
#include "update/SeveralUpdates.h"
#include "update/Steps.h"
#include "update/StopTexts.h"
#include "update/UpdateArguments.h"
#include "update/UpdateDriver.h"
#include "update/UpdateLock.h"

// The update without a window, for scheduled runs and scripts.

namespace repvolta {
namespace {

constexpr int kDone = 0;
constexpr int kDoneWithErrors = 1;
constexpr int kNotStarted = 2;
constexpr int kSignalStatus = 128;

volatile std::sig_atomic_t stopSignal = 0;

void RequestStop(int signal) { stopSignal = signal; }

/// The reason why the update cannot start; nothing has been changed.
class CannotStart : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Prints each progress line to standard output at once. If standard error is a terminal, a line
/// there says how far the update is.
class Console : public ProgressLog, public UpdateHost {
 public:
  bool SawError() const { return problems_.Errors() > 0; }
  bool LostLine() const { return lostLine_; }

  void AddLineToUpdateList(std::string_view line) override {
    problems_.Add(KindOfLine(line));
    terminal_.Clear();
    Print(line);
    terminal_.Show(progress_);
  }

  bool IsWatched() const override { return terminal_.IsThere(); }
  void ShowWork(const WorkDone& work) override {
    progress_ = ProgressLine(meter_.Read(work, std::chrono::steady_clock::now()));
    terminal_.Show(progress_);
  }

  bool KeepWaiting() override { return false; }
  bool StopRequested() override { return stopSignal != 0; }

  /// Takes the line of the progress away.
  void End() {
    progress_.clear();
    terminal_.Clear();
  }

 private:
  void Print(std::string_view line) {
    std::cout << ShownOnOneLine(line) << '\n' << std::flush;
    if (std::cout) return;
    // A reader that closed the pipe wants no more lines.
    if (errno != EPIPE) lostLine_ = true;
    std::cout.clear();
  }

  ProblemCount problems_;
  bool lostLine_ = false;
  ProgressMeter meter_;
  std::string progress_;
  TerminalLine terminal_{STDERR_FILENO};
};

void Warn(ProgressLog& log, const std::string& warning) {
  if (!warning.empty()) log.AddLineToUpdateList("WARNING: " + warning);
}

/// Logs what is wrong with the loaded file.
void WarnOfFile(const ProgramState& state, ProgressLog& log) {
  for (const std::string& warning : {OddSizeOf(state), DamageOf(state)}) Warn(log, warning);
}

void WarnOfRoom(const Program& program, ProgressLog& log) {
  const auto lack = FindLackOfRoom({&program.state}, program.clock.Today());
  if (lack) Warn(log, program.state.WorkoutFileName + " " + TextOf(*lack) + ".");
}

void UpdateWorkout(Program& program, const std::string& name, ProgressLog& log, UpdateHost& host) {
  program.state.WorkoutFileName = name;
  std::string failure = name + " could not be loaded";
  try {
    if (LoadWorkout(program.state) == WorkoutLoad::kLoaded) {
      WarnOfFile(program.state, log);
      WarnOfRoom(program, log);
      UpdateCurrentWorkout(program, log, host);
      return;
    }
  } catch (const std::exception& error) {
    failure = error.what();
  }
  log.AddLineToUpdateList("ERROR: " + failure);
}

void UpdateWorkouts(Program& program, const std::vector<std::string>& workouts, Console& console) {
  SeveralUpdates updates(console, workouts);
  try {
    for (const std::string& workout : workouts) {
      updates.BeginNext();
      UpdateWorkout(program, workout, console, updates);
    }
  } catch (const UpdateStopped&) {
    const auto left = updates.NotBegun();
    if (!left.empty()) console.AddLineToUpdateList(NotUpdatedText(left));
    throw;
  }
  console.End();
}

/// Half a restored backup must not be read: an update first finishes it, a dry run changes nothing.
/// Throws CannotStart, RestoreUnfinished, UpdateRunning.
void ExpectNoHalfRestore(const std::string& directory, UpdateArguments::Task task) {
  if (task == UpdateArguments::Task::kUpdate) {
    FinishInterruptedRestore(directory);
  } else if (IsRestorePending(directory)) {
    throw CannotStart("A restored backup or a changed voice is half in place in " + directory +
                      "; start repvolta or an update, which does the rest");
  }
}

/// Reads the settings and the options. Throws CannotStart.
void LoadChoices(ProgramState& state) {
  const std::string settings = state.ProgramDirectory + kSettingsFile;
  if (!FileExists(settings)) {
    throw CannotStart("There is no " + settings + "; start repvolta first");
  }
  MakeProgramDirectoryCurrent(state);
  LoadSettings(state);
  LoadOptions(state);
}

/// Throws CannotStart when there is no player to write to.
void ExpectPlayer(const ProgramState& state) {
  if (IsOutputPathMissing(state.Settings)) {
    throw CannotStart("no Output file path has been specified");
  }
  const std::string missing = WhyPlayerIsMissing(state);
  if (!missing.empty()) throw CannotStart(missing);
}

/// Throws CannotStart when no update could lock the program directory.
void ExpectLock(const ProgramState& state) {
  const std::string lock = state.ProgramDirectory + kUpdateLockFile;
  const int error = ErrorOfWritingTo(FileExists(lock) ? lock : state.ProgramDirectory);
  if (error != 0) {
    throw CannotStart(FileError(lock, "could not be opened for writing", error).what());
  }
}

/// Prints all of a text. What a reader of a pipe does not want to read is no failure.
int Print(const std::string& text, int status) {
  std::cout << text << std::flush;
  if (std::cout || errno == EPIPE) return status;
  std::cerr << "repvolta-update: The text could not be written\n";
  return kDoneWithErrors;
}

/// Shows what the update would do, also when it could not start.
int ShowPlan(ProgramState& state, const UpdateArguments& arguments) {
  ReadWorkoutNames(state);
  CountRandomMusicFiles(state);
  TimerSeededNumbers random;
  const DryRun run =
      PlanUpdates(state, ChosenWorkouts(state, arguments.workouts), SystemClock().Today(), random);
  const bool isForPrograms = arguments.task == UpdateArguments::Task::kShowPlanAsJson;
  const int status = Print(isForPrograms ? PlanJson(run) : PlanText(run),
                           HasErrors(run) ? kDoneWithErrors : kDone);
  ExpectPlayer(state);
  ExpectLock(state);
  return status;
}

int Update(ProgramState& state, const UpdateArguments& arguments, const std::string& executable) {
  static_cast<void>(std::signal(SIGINT, RequestStop));
  static_cast<void>(std::signal(SIGTERM, RequestStop));
  ExpectPlayer(state);
  SetUpVoice(state);
  LoadWorkoutNames(state);
  CountRandomMusicFiles(state);
  const std::vector<std::string> workouts = ChosenWorkouts(state, arguments.workouts);
  const UpdateLock lock(state.ProgramDirectory);
  // A backup may have been restored until now.
  ReloadChangedSettings(state);
  ReloadChangedOptions(state);
  FillProgramDirectory(state.ProgramDirectory, executable);

  Console console;
  SystemClock clock;
  TimerSeededNumbers random;
  QtChildProcesses processes([&console] { Steps(console, console).CheckStop(); });
  EngineSpeech speech(InstalledEngines(processes));
  Program program{state, clock, random, processes, speech};
  Warn(console, OddOptions(state.Options));
  UpdateWorkouts(program, workouts, console);
  if (console.LostLine()) {
    std::cerr << "repvolta-update: The progress lines could not be written\n";
    return kDoneWithErrors;
  }
  return console.SawError() ? kDoneWithErrors : kDone;
}

int Run(const std::string& executable, const std::vector<std::string>& words) {
  using Task = UpdateArguments::Task;
  const UpdateArguments arguments = ParseUpdateArguments(words);
  if (arguments.task == Task::kShowHelp) return Print(UpdateHelp(), kDone);
  if (arguments.task == Task::kShowVersion) {
    return Print("repvolta-update " REPVOLTA_VERSION "\n", kDone);
  }
  ProgramState state;
  state.ProgramDirectory = FindProgramDirectory(executable);
  ExpectNoHalfRestore(state.ProgramDirectory, arguments.task);
  LoadChoices(state);
  if (arguments.task == Task::kUpdate) return Update(state, arguments, executable);
  return ShowPlan(state, arguments);
}

}  // namespace
}  // namespace repvolta

int main(int argc, char** argv) {
  repvolta::CorrectUserFolders();
  QCoreApplication application(argc, argv);
  static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
  try {
    return repvolta::Run(QCoreApplication::applicationFilePath().toStdString(),
                         {argv + 1, argv + argc});
  } catch (const repvolta::UpdateStopped&) {
    return repvolta::kSignalStatus + repvolta::stopSignal;
  } catch (const std::exception& error) {
    std::cerr << "repvolta-update: " << repvolta::ShownOnOneLine(error.what()) << '\n';
    return repvolta::kNotStarted;
  }
}
