#include "editing/RestoreBackup.h"

#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>

#include "backup/BackupRestore.h"
#include "backup/WriteBackup.h"
#include "base/File.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "editing/BackUp.h"
#include "editing/LoadedWorkout.h"
#include "editing/StartUp.h"
#include "keeping/KeepWorkout.h"
#include "keeping/PendingRestore.h"
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
  editor.dialogs.ShowLongWork("Checking the backup ...", [&](const ReportWork& report) {
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

/// Reads the whole backup again, in sight of the person.
template <class Read>
void Compare(const Editor& editor, BackupRestore& restore, Read read) {
  try {
    editor.dialogs.ShowLongWork("Comparing ...", [&](const ReportWork& report) {
      restore.SetWatch(WatchOf(report));
      read();
    });
    restore.SetWatch({});
  } catch (const WorkStopped&) {
    restore.SetWatch({});
    throw std::runtime_error("The comparison was stopped. Choose the backup again to restore it.");
  }
}

RestoreView ViewOf(const Editor& editor, BackupRestore& restore,
                   const std::vector<PathExchange>& exchanges) {
  RestorePlan plan;
  Compare(editor, restore, [&] { plan = restore.Plan(exchanges); });
  return {TextOf(plan), ChangesNothing(plan)};
}

std::optional<std::vector<PathExchange>> AskExchanges(const Editor& editor,
                                                      const std::string& heading,
                                                      BackupRestore& restore,
                                                      const BackupOrigin& here) {
  std::vector<PathExchange> proposals;
  Compare(editor, restore, [&] { proposals = restore.Proposals(here.home); });
  return editor.dialogs.AskRestore({.heading = heading,
                                    .exchanges = proposals,
                                    .plan = [&](const std::vector<PathExchange>& exchanges) {
                                      return ViewOf(editor, restore, exchanges);
                                    }});
}

/// A name that no backup has yet.
std::string NameForPresent(const BackupOrigin& here) {
  const std::string name = std::string(kBackupFolder) + kBackupBeforeRestore + here.made;
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
  for (const RestoredFile& file : plan.files) {
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
  editor.dialogs.ShowLongWork("Restoring ...", [&](const ReportWork& report) {
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

/// No step leads to what is there now.
void ShowRestored(const Editor& editor) {
  editor.history->Clear();
  ReadAndShowAll(editor);
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
  const ProgramState& state = editor.State();
  MakeProgramDirectoryCurrent(state);
  const UpdateLock lock(state.ProgramDirectory);
  try {
    Precautions done = Decide(editor, restore, exchanges);
    FinishRestore(state.ProgramDirectory);
    return done;
  } catch (const std::exception& error) {
    if (!MayBePending(state.ProgramDirectory)) throw;
    editor.program.RememberPendingRestore(true);
    throw RestoreUnfinished(state.ProgramDirectory, error.what());
  }
}

/// So that nobody answers questions in vain. Makes nothing. Throws UpdateRunning.
void ExpectNoUpdate(const std::string& programDirectory) {
  if (!FileIsReachable(programDirectory + kUpdateLockFile)) return;
  const UpdateLock look(programDirectory);
}

void AskAndRestore(const Editor& editor) {
  const ProgramState& state = editor.State();
  MakeProgramDirectoryCurrent(state);
  ExpectNoUpdate(state.ProgramDirectory);
  const std::string file = editor.dialogs.ChooseFileToOpen(BackupQuestion(kTitle, ""));
  if (file.empty()) return;
  MakeProgramDirectoryCurrent(state);
  const auto restore = Check(editor, file);
  const BackupOrigin here = OriginHere(state.ProgramDirectory, editor.program.clock.Now());
  const std::string heading = HeadingOf(file, restore->Origin());
  const auto exchanges = AskExchanges(editor, heading, *restore, here);
  if (!exchanges) return;
  const Precautions done = Restore(editor, *restore, *exchanges);
  ShowRestored(editor);
  TellUnkept(editor, done.unkept);
  editor.dialogs.ShowMessage(DoneText(editor, heading, done), kTitle);
}

}  // namespace

void RestoreBackup(Editor& editor) {
  try {
    FinishPendingRestore(editor);
    AskAndRestore(editor);
  } catch (const WorkoutReplaced& finished) {
    editor.dialogs.ShowMessage(finished.what(), kTitle);
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
  const ProgramState& state = editor.State();
  if (!state.RestoreIsPending) return;
  FinishInterruptedRestore(state.ProgramDirectory);
  editor.program.RememberPendingRestore(false);
  ShowRestored(editor);
  throw WorkoutReplaced("The rest of the backup, or of the changed voice, is in place now.");
}

}  // namespace repvolta
