#include "editing/RestoreBackup.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>

#include "app/Options.h"
#include "app/ScreenUpdate.h"
#include "app/Settings.h"
#include "app/Voice.h"
#include "backup/BackupRestore.h"
#include "backup/WriteBackup.h"
#include "base/File.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "editing/BackUp.h"
#include "editing/LoadedWorkout.h"
#include "keeping/KeepWorkout.h"
#include "keeping/PendingRestore.h"
#include "update/RandomMusicList.h"
#include "update/RestoreAtStart.h"
#include "update/UpdateLock.h"

namespace repvolta {
namespace {

constexpr const char* kTitle = "Restore a Backup";

BackupWatch WatchOf(const ReportWork& report) {
  return [&report](std::size_t done, std::size_t all) {
    report(all == 0 ? 0 : static_cast<int>(done * 100 / all));
  };
}

/// The whole backup, read once.
std::unique_ptr<BackupRestore> Check(const Editor& editor, const std::string& file) {
  std::unique_ptr<BackupRestore> restore;
  editor.dialogs.ShowWork("Checking the backup ...", [&](const ReportWork& report) {
    restore = std::make_unique<BackupRestore>(file, WatchOf(report));
    restore->SetWatch({});
  });
  return restore;
}

std::string HeadingOf(const std::string& file, const BackupOrigin& origin) {
  std::string heading = ShownOnOneLine(FileName(file));
  if (!origin.made.empty()) heading += ", made on " + ShownOnOneLine(origin.made);
  if (!origin.programDirectory.empty()) heading += " of " + ShownOnOneLine(origin.programDirectory);
  return heading;
}

std::optional<std::vector<PathExchange>> AskExchanges(const Editor& editor,
                                                      const std::string& heading,
                                                      const BackupRestore& restore,
                                                      const BackupOrigin& here) {
  return editor.dialogs.AskRestore({.heading = heading,
                                    .exchanges = restore.Proposals(here.home),
                                    .plan = [&restore](const auto& exchanges) -> RestoreView {
                                      const RestorePlan plan = restore.Plan(exchanges);
                                      return {TextOf(plan), ChangesNothing(plan)};
                                    }});
}

/// A name that no backup has yet.
std::string NameForPresent(const BackupOrigin& here) {
  const std::string name = std::string(kBackupFolder) + "Before restore " + here.made;
  std::string path = name + kBackupExtension;
  for (int i = 2; IsTaken(path); ++i) path = name + " " + std::to_string(i) + kBackupExtension;
  return path;
}

/// Returns the path of the backup; "" when there is nothing to back up.
std::string BackUpPresent(const BackupOrigin& here, const BackupWatch& watch) {
  MakeFolder(WithoutSeparator(kBackupFolder));
  std::string path = NameForPresent(here);
  if (!WriteBackup(path, here, watch).counts.empty()) return path;
  RemoveFile(path);
  return "";
}

/// Keeps each workout that is replaced, too; returns why one could not be kept.
std::string KeepReplaced(const Editor& editor, const RestorePlan& plan) {
  std::string unkept;
  for (const PlannedFile& file : plan.files) {
    if (file.kind != BackupKind::kWorkout || file.effect != RestoreEffect::kReplaces) continue;
    const std::string why =
        KeepBefore(BeforeWhat::kRestore, file.target, editor.State(), editor.program.clock.Now());
    if (unkept.empty()) unkept = why;
  }
  return unkept;
}

/// What was done before the restore.
struct Precautions {
  std::string backup;  // of the state before; "": there was none
  std::string unkept;  // why a workout's version was not kept
};

/// Until the last statement nothing is changed.
Precautions Decide(const Editor& editor, BackupRestore& restore,
                   const std::vector<PathExchange>& exchanges) {
  const std::string& directory = editor.State().ProgramDirectory;
  Precautions done;
  editor.dialogs.ShowWork("Restoring ...", [&](const ReportWork& report) {
    FinishRestore(directory);
    RestoreStage stage(directory);
    restore.SetWatch(WatchOf(report));
    const RestorePlan plan = restore.Stage(exchanges, stage);
    restore.SetWatch({});
    done.backup = BackUpPresent(OriginHere(directory, editor.program.clock.Now()), WatchOf(report));
    done.unkept = KeepReplaced(editor, plan);
    stage.Commit();
  });
  return done;
}

/// One step of showing what was restored; a failure is shown, and the next step follows.
void Try(const Editor& editor, const std::function<void()>& step) {
  try {
    step();
  } catch (const std::exception& error) {
    editor.dialogs.ShowMessage(error.what());
  }
}

/// Where the workout stands that was in memory, else the one that was last chosen; -1 for none.
int RowToLoad(const ProgramState& state) {
  const auto& names = state.WorkoutNames;
  if (names.empty()) return -1;
  const auto found = std::find(names.begin(), names.end(), state.WorkoutFileName);
  if (found != names.end()) return static_cast<int>(found - names.begin());
  const int last = state.Settings.LastWorkoutIndex;
  return last >= 0 && last < state.NumberOfWorkouts ? last : 0;
}

void LoadRestoredWorkout(const Editor& editor) {
  ListWorkouts(editor);
  const int row = RowToLoad(editor.State());
  editor.screen.SelectWorkout(row);
  editor.State().WorkoutFileName =
      row < 0 ? "" : editor.State().WorkoutNames.at(static_cast<std::size_t>(row));
  editor.screen.EnableWorkoutControls();
  if (row >= 0) LoadAndShowWorkout(editor);
}

/// As the start does.
void ReadAndShowAll(const Editor& editor) {
  ProgramState& state = editor.State();
  Try(editor, [&] { MakeProgramDirectoryCurrent(state); });
  Try(editor, [&] { LoadSettings(state); });
  Try(editor, [&] { LoadOptions(state); });
  Try(editor, [&] { LoadRestoredWorkout(editor); });
  SetUpVoice(state);
  Try(editor, [&] { editor.screen.ShowVoices(editor.program.speech.VoiceNames()); });
  editor.screen.ShowFormats();
  Try(editor, [&] { CountRandomMusicFiles(state); });
  const ScreenUpdate updating(state);
  editor.screen.UpdateSettingsScreen();
}

std::string DoneText(const Editor& editor, const std::string& heading, const Precautions& done) {
  if (done.backup.empty()) return "Restored: " + heading + ".";
  return "Restored: " + heading + ".\r\rWhat was here before is in\r" +
         ShownOnOneLine(editor.State().ProgramDirectory + done.backup);
}

/// A disk that cannot tell may hold half a restore.
bool MayBePending(const std::string& programDirectory) {
  try {
    return IsRestorePending(programDirectory);
  } catch (const FileError&) {
    return true;
  }
}

/// The lock keeps updates away until all is in place.
Precautions Restore(const Editor& editor, BackupRestore& restore,
                    const std::vector<PathExchange>& exchanges) {
  ProgramState& state = editor.State();
  MakeProgramDirectoryCurrent(state);
  const UpdateLock lock(state.ProgramDirectory);
  try {
    Precautions done = Decide(editor, restore, exchanges);
    FinishRestore(state.ProgramDirectory);
    return done;
  } catch (const FileError& error) {
    state.RestoreIsPending = MayBePending(state.ProgramDirectory);
    if (!state.RestoreIsPending) throw;
    throw RestoreUnfinished(state.ProgramDirectory, error.what());
  }
}

void AskAndRestore(const Editor& editor) {
  const ProgramState& state = editor.State();
  MakeProgramDirectoryCurrent(state);
  // So that nobody answers questions in vain.
  static_cast<void>(UpdateLock(state.ProgramDirectory));
  const std::string file = editor.dialogs.ChooseFileToOpen(BackupQuestion(kTitle, ""));
  if (file.empty()) return;
  MakeProgramDirectoryCurrent(state);
  const auto restore = Check(editor, file);
  const BackupOrigin here = OriginHere(state.ProgramDirectory, editor.program.clock.Now());
  const std::string heading = HeadingOf(file, restore->Origin());
  const auto exchanges = AskExchanges(editor, heading, *restore, here);
  if (!exchanges) return;
  const Precautions done = Restore(editor, *restore, *exchanges);
  ReadAndShowAll(editor);
  TellUnkept(editor, done.unkept);
  editor.dialogs.ShowMessage(DoneText(editor, heading, done), kTitle);
}

}  // namespace

void RestoreBackup(Editor& editor) {
  FinishPendingRestore(editor);
  try {
    AskAndRestore(editor);
  } catch (const RestoreUnfinished&) {
    throw;
  } catch (const FileError& error) {
    // The window says before it that nothing is restored.
    throw std::runtime_error(error.what());
  } catch (const WorkStopped&) {
    editor.dialogs.ShowMessage("Nothing was restored; everything is as it was.", kTitle);
  }
}

void FinishPendingRestore(const Editor& editor) {
  ProgramState& state = editor.State();
  if (!state.RestoreIsPending) return;
  FinishInterruptedRestore(state.ProgramDirectory);
  state.RestoreIsPending = false;
  ReadAndShowAll(editor);
  throw WorkoutReplaced("The rest of the backup has been restored now.");
}

}  // namespace repvolta
