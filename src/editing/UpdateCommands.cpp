#include "editing/UpdateCommands.h"

#include <optional>
#include <string>
#include <vector>

#include "base/Text.h"
#include "editing/LoadedWorkout.h"
#include "editing/Undo.h"
#include "editing/UpdateQuestions.h"
#include "player/OutputPath.h"
#include "update/SeveralUpdates.h"
#include "update/Steps.h"
#include "update/StopTexts.h"
#include "update/UpdateDriver.h"
#include "update/UpdateLock.h"

namespace repvolta {
namespace {

/// Undone, the values and dates come back; what was written to the player stays.
constexpr const char* kStep = "Update";

bool CanUpdate(const Editor& editor) {
  MakeProgramDirectoryCurrent(editor.State());
  if (TrimBlanks(editor.State().WorkoutFileName).empty()) return false;
  if (!IsOutputPathMissing(editor.State().Settings)) return true;
  editor.dialogs.ShowMessage("Cannot perform update, no Output file path has been specified.");
  return false;
}

/// A stopped update may have grown the workout, too.
std::optional<std::string> Update(const Editor& editor, UpdateHost& host) {
  std::optional<std::string> playList;
  try {
    editor.history->Change(StepOfExercise(editor, kStep), [&](const WorkoutAccess& workout) {
      playList = UpdateCurrentWorkout(workout.WholeProgram(), editor.log, host);
    });
    return playList;
  } catch (const UpdateStopped&) {
    ShowExercise(editor);
    throw;
  }
}

/// The window's additions to an update. Their failures become lines of the update, too.
void UpdateAndShow(const Editor& editor, UpdateHost& host) {
  const auto playList = Update(editor, host);
  if (!playList) return;
  // What a stop leaves out is listed in the open window.
  if (editor.State().UpdatingAllWorkouts && !host.StopRequested()) editor.progress.Hide();
  Steps steps(editor.log, host);
  steps.Run([&] { editor.screen.UpdateExerciseScreen(); });
  if (editor.State().Settings.AutoLoadPlaylist == kTrue) {
    steps.Run([&] { editor.dialogs.OpenDocument(*playList); });
  }
}

/// Reports a workout that cannot be read, and returns kNotFound for it too.
WorkoutLoad LoadOrTell(const Editor& editor) {
  try {
    return LoadOrSayNotFound(editor);
  } catch (const std::exception& error) {
    editor.dialogs.ShowMessage(error.what());
    return WorkoutLoad::kNotFound;
  }
}

void ShowOrTell(const Editor& editor) {
  try {
    ShowLoadedWorkout(editor);
  } catch (const std::exception& error) {
    editor.dialogs.ShowMessage(editor.State().WorkoutFileName +
                               " cannot be shown as a whole, but is updated all the same.\r" +
                               error.what());
  }
}

void LoadAndUpdate(const Editor& editor, UpdateHost& host, const std::string& name) {
  editor.program.NameWorkout(name);
  const WorkoutLoad load = LoadOrTell(editor);
  // The previous workout must not be saved under this one's name.
  if (load == WorkoutLoad::kNotFound) return;
  if (load == WorkoutLoad::kLoaded) ShowOrTell(editor);
  UpdateAndShow(editor, host);
}

void UpdateAll(const Editor& editor, const std::vector<std::string>& names) {
  SeveralUpdates updates(editor.host, names);
  try {
    for (const std::string& name : names) {
      updates.BeginNext();
      LoadAndUpdate(editor, updates, name);
    }
  } catch (const UpdateStopped&) {
    const auto left = updates.NotBegun();
    if (!left.empty()) editor.log.AddLineToUpdateList(NotUpdatedText(left));
    LoadAndUpdate(editor, editor.host, "");
    throw;
  }
}

}  // namespace

void UpdateSelectedWorkoutButton_Click(const Editor& editor) {
  if (!CanUpdate(editor)) return;
  const UpdateLock lock(editor.State().ProgramDirectory);
  if (!ConfirmUpdate(editor)) return;
  editor.program.UpdateAllWorkouts(false);
  UpdateAndShow(editor, editor.host);
}

void UpdateAllWorkoutsButton_Click(const Editor& editor) {
  if (!CanUpdate(editor)) return;
  const UpdateLock lock(editor.State().ProgramDirectory);
  if (!ConfirmUpdateOfAll(editor)) return;
  editor.program.UpdateAllWorkouts(true);
  const std::vector<std::string> names = editor.State().WorkoutNames;
  const StepPlace place = PlaceNow(editor, WindowTab::kWorkout);
  editor.history->Together({kStep, place, place}, [&] { UpdateAll(editor, names); });
  // One pass more than there are workouts, with an empty name: no workout is loaded afterwards
  // (quirk 56).
  LoadAndUpdate(editor, editor.host, "");
  editor.dialogs.ShowMessage("Update COMPLETED on all Workouts");
}

}  // namespace repvolta
