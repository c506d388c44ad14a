#include "editing/RestoreVersion.h"

#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "editing/Undo.h"
#include "keeping/Versions.h"

namespace repvolta {
namespace {

constexpr const char* kTitle = "Restore an Earlier Version";

/// The name of the workout's file as the workout folder has it.
std::string PresentFile(const Editor& editor) {
  const ProgramState& state = editor.State();
  if (TrimBlanks(state.WorkoutFileName).empty()) return "";
  return FileName(PathOfWorkout(state));
}

/// Why the file could not be kept as it is now; "" when it is kept. Throws FileError when it must
/// not be replaced at all.
std::string KeepOrSayWhyNot(const Editor& editor, const std::string& path) {
  bool isKept = false;
  try {
    isKept = KeepVersion(path, BeforeWhat::kRestore, editor.program.clock.Now());
  } catch (const FileError& error) {
    return error.what();
  }
  if (!isKept) throw FileError(path, "is not replaced", "It is too large for a workout");
  return "";
}

/// Asks whether to go on where the workout cannot be kept as it is now.
bool KeepPresent(const Editor& editor, const std::string& fileName) {
  const auto path = FindFile(kWorkoutFolder + fileName);
  const std::string why = path ? KeepOrSayWhyNot(editor, *path) : "";
  return why.empty() ||
         editor.dialogs.Confirm(BaseName(fileName) + " cannot be kept as it is now:\r" + why +
                                    "\rRestore the earlier version all the same?",
                                kTitle);
}

/// Seen where the person is, before, and in the restored workout, afterwards.
StepDescription StepOf(const Editor& editor, const std::string& fileName) {
  StepDescription step{.name = StepName("Restore Earlier Version of", BaseName(fileName)),
                       .undone = PlaceNow(editor, WindowTab::kWorkout),
                       .done = {.workout = fileName}};
  if (editor.State().WorkoutFileName == fileName) step.done.exercise = step.undone.exercise;
  return step;
}

void Replace(const Editor& editor, const ChosenVersion& chosen) {
  const std::string fileName = FileName(ExistingName(kWorkoutFolder + chosen.fileName));
  const StepDescription step = StepOf(editor, fileName);
  // It is kept already, or the person knows why not.
  static_cast<void>(
      editor.history->ReplaceFiles(step, BeforeWhat::kRestore, {{fileName, chosen.bytes}}));
  GoTo(editor, step.done);
}

}  // namespace

void RestoreVersion(Editor& editor) {
  MakeProgramDirectoryCurrent(editor.State());
  EarlierVersions versions(PresentFile(editor));
  if (versions.AreNone()) {
    editor.dialogs.ShowMessage(
        "No version of a workout is kept yet. A workout is kept before the first change of a day "
        "and before each update.",
        kTitle);
    return;
  }
  const auto chosen = editor.dialogs.ChooseVersion(versions);
  if (!chosen || !KeepPresent(editor, chosen->fileName)) return;
  Replace(editor, *chosen);
}

}  // namespace repvolta
