#include "editing/RestoreVersion.h"

#include <algorithm>

#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "base/WholeFile.h"
#include "editing/LoadedWorkout.h"
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

/// Why the file cannot be kept as it is now; "" when it is.
std::string KeepOrSayWhyNot(const Editor& editor, const std::string& path) {
  try {
    return KeepVersion(path, BeforeWhat::kRestore, editor.program.clock.Now())
               ? ""
               : "The file is too large for a workout.";
  } catch (const FileError& error) {
    return error.what();
  }
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

void Replace(const Editor& /*editor*/, const ChosenVersion& chosen) {
  MakeFolder(kWorkoutFolder);
  WriteWholeFile(ExistingName(kWorkoutFolder + chosen.fileName), chosen.bytes);
}

void LoadAndSelect(const Editor& editor, const std::string& fileName) {
  ListWorkouts(editor);
  const auto& names = editor.State().WorkoutNames;
  const auto found = std::find(names.begin(), names.end(), fileName);
  editor.screen.SelectWorkout(found == names.end() ? -1 : static_cast<int>(found - names.begin()));
  editor.State().WorkoutFileName = fileName;
  LoadAndShowWorkout(editor);
  editor.screen.EnableWorkoutControls();
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
  LoadAndSelect(editor, chosen->fileName);
}

}  // namespace repvolta
