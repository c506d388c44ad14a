#include "editing/WorkoutEditing.h"

#include <cerrno>
#include <filesystem>

#include "app/Exercises.h"
#include "base/File.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/FileStatus.h"
#include "base/Numbers.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "editing/AnswerLines.h"
#include "editing/LoadedWorkout.h"
#include "editing/Undo.h"
#include "editing/WorkoutName.h"
#include "keeping/KeepWorkout.h"

namespace repvolta {
namespace {

/// On destruction, puts back the workout that was loaded before, in memory and on the screen,
/// unless LetNewOneStand() was called.
class PreviousWorkout {
 public:
  PreviousWorkout(const Editor& editor, const WorkoutAccess& workout)
      : editor_(editor),
        workout_(workout),
        state_(editor.State()),
        selected_(editor.screen.SelectedWorkout()) {}
  ~PreviousWorkout() {
    if (!restores_) return;
    workout_.State() = state_;
    editor_.screen.ShowWorkoutNames();
    editor_.screen.SelectWorkout(selected_);
  }
  PreviousWorkout(const PreviousWorkout&) = delete;
  PreviousWorkout& operator=(const PreviousWorkout&) = delete;

  void LetNewOneStand() { restores_ = false; }

 private:
  const Editor& editor_;
  const WorkoutAccess& workout_;
  const ProgramState state_;
  const int selected_;
  bool restores_ = true;
};

void ListNewWorkout(const Editor& editor, ProgramState& state, const std::string& fileName) {
  const ScreenUpdate updating(state);
  editor.screen.ShowTab(WindowTab::kWorkout);
  state.WorkoutFileName = fileName;
  state.WorkoutNames.push_back(state.WorkoutFileName);
  state.NumberOfWorkouts = CheckedInt16(static_cast<std::int64_t>(state.WorkoutNames.size()));
  editor.screen.ShowWorkoutNames();
  editor.screen.SelectWorkout(state.NumberOfWorkouts - 1);
  state.CurrentExercise = 0;
  state.NumberOfExercises = 0;
}

void InitialiseWorkout(ProgramState& state, double today) {
  for (int i = 0; i < MaxExercises; ++i) {
    InitialiseExercise(state.Workout[i], state.Settings, today);
  }
}

/// Unlike RemoveFile, refuses to delete a read-only file.
void DeleteWorkoutFile(const std::string& path) {
  constexpr const char* kFailure = "could not be deleted";
  const auto status = StatusOf(path, Links::kFollowed);
  if (!status || !S_ISREG(status->st_mode)) throw FileError(path, kFailure, ENOENT);
  constexpr mode_t kWritable = S_IWUSR | S_IWGRP | S_IWOTH;
  if ((status->st_mode & kWritable) == 0) throw FileError(path, kFailure, "it is read-only");
  RemoveFile(path);
}

void KeepWhatIsReplaced(const Editor& editor) {
  TellUnkept(editor, KeepBefore(BeforeWhat::kReplacement, PathOfWorkout(editor.State()),
                                editor.State(), editor.program.clock.Now()));
}

void BeginNew(const Editor& editor, const WorkoutAccess& workout, const std::string& fileName) {
  PreviousWorkout previous(editor, workout);
  ListNewWorkout(editor, workout.State(), fileName);
  InitialiseWorkout(workout.State(), editor.program.clock.Today());
  KeepWhatIsReplaced(editor);
  // An empty workout takes the place of one that has this name already (quirk 104).
  ReplaceWorkoutFile(workout.State());
  SaveWorkout(workout.State());
  previous.LetNewOneStand();
}

}  // namespace

void CreateNewWorkoutButton_Click(Editor& editor) {
  const std::string name = AskWorkoutName(editor, "Enter a name for the new Workout", "New Workout",
                                          NewWorkoutHelp(editor.State()));
  if (name.empty()) return;
  MakeProgramDirectoryCurrent(editor.State());
  const std::string file = name + std::string(kWorkoutExtension);
  editor.history->ChangeFile(
      {.name = StepName("New Workout", name),
       .undone = PlaceNow(editor, WindowTab::kWorkout),
       .done = {.workout = file}},
      ExistingName(kWorkoutFolder + file),
      [&](const WorkoutAccess& workout) { BeginNew(editor, workout, file); });
  LoadAndShowWorkout(editor);
}

void DeleteSelectedWorkoutButton_Click(Editor& editor) {
  const ProgramState& state = editor.State();
  if (TrimBlanks(state.WorkoutFileName).empty()) return;
  if (!editor.dialogs.Confirm("Are you SURE you want to delete workout\r" + state.WorkoutFileName,
                              "Delete Workout")) {
    return;
  }
  // The name alone, in the current directory and not in the workout folder (quirk 105).
  const std::string path = ExistingName(state.WorkoutFileName);
  TellUnkept(editor, KeepBefore(BeforeWhat::kDeletion, path, state, editor.program.clock.Now()));
  editor.history->ChangeFile({.name = StepName("Delete Workout", BaseName(path)),
                              .undone = PlaceNow(editor, WindowTab::kWorkout),
                              .done = {}},
                             std::filesystem::absolute(path),
                             [&](const WorkoutAccess&) { DeleteWorkoutFile(path); });
  ListWorkouts(editor);
  editor.program.NameWorkout("");
}

void WorkoutDropBox_Click(Editor& editor, const std::string& name) {
  const ProgramState& state = editor.State();
  if (TrimBlanks(name).empty()) {
    editor.program.NameWorkout(name);
    return;
  }
  const std::string before = state.WorkoutFileName;
  editor.program.NameWorkout(name);
  editor.screen.EnableWorkoutControls();
  // The workout in memory must not be saved under the name of a file that was not loaded.
  const auto goBack = [&] {
    editor.program.NameWorkout(before);
    editor.screen.SelectWorkout(PlaceInList(state, before));
  };
  try {
    if (LoadAndShowWorkout(editor) != WorkoutLoad::kLoaded) goBack();
  } catch (const FileError&) {
    goBack();
    throw;
  }
}

}  // namespace repvolta
