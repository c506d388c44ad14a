#include "editing/WorkoutCopies.h"

#include "app/WorkoutDamage.h"
#include "base/File.h"
#include "base/FileNames.h"
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

bool HasWorkout(const Editor& editor) {
  return !TrimBlanks(editor.State().WorkoutFileName).empty();
}

std::string NameOf(const Editor& editor) { return BaseName(editor.State().WorkoutFileName); }

/// The file that a workout of this name would have. Says so and returns "" when another workout,
/// whose name may differ in case, has it already; `own` is the path of a file that may.
std::string FreePath(const Editor& editor, const std::string& name, const std::string& title,
                     const std::string& own = "") {
  std::string path = kWorkoutFolder + name + kWorkoutExtension;
  const auto taken = FindFile(path);
  if (!taken || *taken == own) return path;
  editor.dialogs.ShowMessage("There is a workout " + BaseName(*taken) + " already.", title);
  return "";
}

/// Lists the workouts anew and selects that of the file without loading it.
void ListAndSelect(const Editor& editor, const std::string& path) {
  ListWorkouts(editor);
  editor.screen.SelectWorkout(PlaceInList(editor.State(), FileName(path)));
}

/// Says why there is no room for one more exercise.
bool HasRoom(const Editor& editor, const ProgramState& workout) {
  if (workout.NumberOfExercises < MaxExercises) return true;
  editor.dialogs.ShowMessage(BaseName(workout.WorkoutFileName) + " has " +
                                 std::to_string(MaxExercises) +
                                 " exercises, and there is no room for more.",
                             "Copy Exercise");
  return false;
}

void Append(ProgramState& workout, const ExerciseRecord& exercise) {
  workout.Workout[workout.NumberOfExercises] = exercise;
  ++workout.NumberOfExercises;
}

std::string NameOfCopy(const ExerciseRecord& exercise) {
  return StepName("Copy Exercise", exercise.ExerciseName.Trimmed());
}

/// Another workout, to add an exercise. Says why it cannot be used, and returns false.
bool LoadOther(const Editor& editor, ProgramState& other) {
  const bool isThere = LoadWorkout(other) == WorkoutLoad::kLoaded;
  const std::string damage = isThere ? DamageOf(other) : other.WorkoutFileName + " is gone.";
  if (!damage.empty()) editor.dialogs.ShowMessage(damage, "Copy Exercise");
  return damage.empty();
}

void CopyToOther(const Editor& editor, const ExerciseRecord& exercise, const std::string& name) {
  ProgramState other = editor.State();
  other.WorkoutFileName = name;
  if (!LoadOther(editor, other) || !HasRoom(editor, other)) return;
  const StepPlace place{
      .workout = name, .tab = WindowTab::kWorkout, .exercise = other.NumberOfExercises};
  Append(other, exercise);
  editor.history->ChangeFile(
      {NameOfCopy(exercise), place, place}, PathOfWorkout(other), [&](const WorkoutAccess&) {
        const std::string unkept = KeepBeforeChange(other, editor.program.clock.Now());
        SaveWorkout(other);
        TellUnkept(editor, unkept);
      });
  editor.dialogs.ShowMessage(
      exercise.ExerciseName.Trimmed() + " is now in " + BaseName(name) + ", too.", "Copy Exercise");
}

void CopyHere(const Editor& editor, const ExerciseRecord& exercise) {
  if (!HasRoom(editor, editor.State())) return;
  StepDescription step{NameOfCopy(exercise), PlaceNow(editor, WindowTab::kWorkout),
                       PlaceNow(editor, WindowTab::kWorkout)};
  step.done.exercise = editor.State().NumberOfExercises;
  editor.history->Change(step, [&](const WorkoutAccess& workout) {
    Append(workout.State(), exercise);
    editor.program.SelectExercise(step.done.exercise);
    SaveAndShow(editor, workout, [&] { ShowWorkout(editor); });
  });
}

}  // namespace

void DuplicateWorkout(Editor& editor) {
  if (!HasWorkout(editor)) return;
  MakeProgramDirectoryCurrent(editor.State());
  constexpr const char* kTitle = "Duplicate Workout";
  const std::string name = AskWorkoutName(editor, "Enter a name for the copy of " + NameOf(editor),
                                          kTitle, CopiedWorkoutHelp(editor.State()));
  const std::string path = name.empty() ? "" : FreePath(editor, name, kTitle);
  if (path.empty()) return;
  editor.history->ChangeFile(
      {.name = StepName("Duplicate Workout", NameOf(editor)),
       .undone = PlaceNow(editor, WindowTab::kWorkout),
       .done = {.workout = FileName(path)}},
      path, [&](const WorkoutAccess&) { CopyFileToNew(PathOfWorkout(editor.State()), path); });
  ListAndSelect(editor, path);
  editor.program.NameWorkout(FileName(path));
  LoadAndShowWorkout(editor);
}

void RenameWorkout(Editor& editor) {
  const ProgramState& state = editor.State();
  if (!HasWorkout(editor)) return;
  MakeProgramDirectoryCurrent(state);
  constexpr const char* kTitle = "Rename Workout";
  const std::string before = NameOf(editor);
  const std::string name = AskWorkoutName(editor, "Enter a new name for " + before, kTitle,
                                          RenamedWorkoutHelp(state), before);
  if (name.empty() || name == before) return;
  const std::string old = PathOfWorkout(state);
  const std::string path = FreePath(editor, name, kTitle, old);
  if (path.empty()) return;
  StepPlace renamed = PlaceNow(editor, WindowTab::kWorkout);
  renamed.workout = FileName(path);
  const std::string failure =
      editor.history->Rename({.name = StepName("Rename Workout", before),
                              .undone = PlaceNow(editor, WindowTab::kWorkout),
                              .done = renamed},
                             old, path);
  ListAndSelect(editor, path);
  if (failure.empty()) return;
  editor.dialogs.ShowMessage(
      "The workout has its new name, but the versions that were kept of it still have the old "
      "one.\r" +
      failure);
}

void CopyExercise(Editor& editor, int row) {
  const ProgramState& state = editor.State();
  if (!HasWorkout(editor) || row < 0 || row >= state.NumberOfExercises) return;
  MakeProgramDirectoryCurrent(state);
  const ExerciseRecord exercise = state.Workout[row];
  std::vector<std::string> names;
  names.reserve(state.WorkoutNames.size());
  for (const std::string& file : state.WorkoutNames) names.push_back(BaseName(file));
  const auto chosen = editor.dialogs.Choose(
      "Copy " + exercise.ExerciseName.Trimmed() + " to the workout:", "Copy Exercise", names);
  if (!chosen) return;
  const std::string target = state.WorkoutNames.at(*chosen);
  if (target == state.WorkoutFileName) {
    CopyHere(editor, exercise);
  } else {
    CopyToOther(editor, exercise, target);
  }
}

}  // namespace repvolta
