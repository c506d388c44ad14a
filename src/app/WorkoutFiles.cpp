#include "app/WorkoutFiles.h"

#include <cerrno>
#include <sys/stat.h>

#include "app/RecordFormat.h"
#include "app/ScreenUpdate.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Numbers.h"
#include "base/WholeFile.h"

namespace repvolta {
namespace {

std::string WorkoutPath(const ProgramState& state) {
  return ExistingName(std::string(kWorkoutFolder) + state.WorkoutFileName);
}

void MakeWorkoutFolder() {
  const std::string folder(kWorkoutFolder);
  if (mkdir(folder.c_str(), 0777) != 0 && errno != EEXIST) {
    throw FileError(folder, "could not be created", errno);
  }
}

/// Counts the named exercises up to the first blank name; later names are never looked at.
std::int16_t CountExercises(ExerciseSlots& workout) {
  for (std::int16_t i = 0; i < MaxExercises; ++i) {
    workout[i].ExerciseName = workout[i].ExerciseName.Trimmed();
    if (workout[i].ExerciseName.IsBlank()) return i;
  }
  return MaxExercises;
}

}  // namespace

void LoadWorkoutNames(ProgramState& state, UserInterface& screen) {
  const ScreenUpdate updating(state);
  MakeWorkoutFolder();
  state.WorkoutNames = ListFiles(std::string(kWorkoutFolder), kWorkoutExtension);
  state.NumberOfWorkouts = CheckedInt16(static_cast<std::int64_t>(state.WorkoutNames.size()));
  screen.ShowWorkoutNames();
}

WorkoutLoad LoadWorkout(ProgramState& state, UserInterface& screen) {
  if (TrimBlanks(state.WorkoutFileName).empty()) return WorkoutLoad::kNoName;
  const std::string path = WorkoutPath(state);
  if (!FileExists(path)) {
    screen.ShowMessage("Error: Workout file not found");
    return WorkoutLoad::kNotFound;
  }
  state.Workout = DecodeWorkout(ReadWholeFile(path, kWorkoutFileSize));
  state.NumberOfExercises = CountExercises(state.Workout);
  state.CurrentExercise = 0;
  screen.UpdateWorkoutScreen();
  screen.UpdateExerciseScreen();
  return WorkoutLoad::kLoaded;
}

void SaveWorkout(const ProgramState& state) {
  MakeProgramDirectoryCurrent(state);
  if (TrimBlanks(state.WorkoutFileName).empty()) return;
  MakeWorkoutFolder();
  WriteWholeFile(WorkoutPath(state), EncodeWorkout(state.Workout));
}

}  // namespace repvolta
