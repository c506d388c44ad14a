#include "app/WorkoutFiles.h"

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>

#include "app/RecordFormat.h"
#include "app/ScreenUpdate.h"
#include "app/WorkoutDamage.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Numbers.h"
#include "base/WholeFile.h"

namespace repvolta {
namespace {

std::string WorkoutPath(const ProgramState& state, const std::string& directory = "") {
  return ExistingName(directory + std::string(kWorkoutFolder) + state.WorkoutFileName);
}

bool IsFileKnown(const ProgramState& state) {
  return state.KnownFile && state.KnownFile->name == state.WorkoutFileName;
}

bool IsOtherThanKnown(const ProgramState& state, const std::string& path) {
  if (!IsFileKnown(state)) return false;
  const std::optional<FileStamp> stamp = StampOf(path);
  return stamp && *stamp != state.KnownFile->stamp;
}

/// Throws FileError when the file holds what was not loaded or saved here.
void ExpectKnown(const ProgramState& state, const std::string& path) {
  constexpr const char* kFailure = "could not be written";
  if (IsOtherThanKnown(state, path)) {
    throw FileError(path, kFailure, "Another program has changed it meanwhile");
  }
  if (!IsFileKnown(state) && FileExists(path)) {
    throw FileError(path, kFailure, "It holds another workout, which was not loaded");
  }
}

void RememberPlaced(ProgramState& state, const WholeFileWriter& writer) {
  if (const auto stamp = writer.Placed()) state.KnownFile = {state.WorkoutFileName, *stamp};
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

void ReadWorkout(ProgramState& state, const std::string& path) {
  // Taken before the content: a change in between is then noticed, not lost.
  const std::optional<FileStamp> stamp = StampOf(path);
  state.Workout = DecodeWorkout(ReadWholeFile(path, kWorkoutFileSize));
  state.KnownFile.reset();
  if (stamp) state.KnownFile = {state.WorkoutFileName, *stamp};
  state.NumberOfExercises = CountExercises(state.Workout);
}

/// What keeps a damaged workout from being shown as a whole is not told: that it is damaged says
/// more.
void ShowLoaded(const ProgramState& state, UserInterface& screen) {
  try {
    screen.UpdateWorkoutScreen();
    screen.UpdateExerciseScreen();
  } catch (const std::exception&) {
    if (DamageOf(state).empty()) throw;
  }
}

/// What the lists of the window have rows for.
std::vector<std::string> RowsOf(const ProgramState& state) {
  std::vector<std::string> rows;
  for (int i = 0; i < state.NumberOfExercises; ++i) {
    const ExerciseRecord& exercise = state.Workout[i];
    rows.push_back(exercise.ExerciseName.Text() + "/" + std::to_string(exercise.NumberOfSets));
    if (i != state.CurrentExercise) continue;
    const int files = std::min<int>(exercise.NumberOfMusicFiles, MaxMusicFiles);
    for (int j = 0; j < files; ++j) rows.push_back(exercise.MusicFile[j].Text());
  }
  return rows;
}

}  // namespace

void LoadWorkoutNames(ProgramState& state, UserInterface& screen) {
  const ScreenUpdate updating(state);
  MakeWorkoutFolder();
  state.WorkoutNames = ListFiles(std::string(kWorkoutFolder), kWorkoutExtension);
  state.NumberOfWorkouts = CheckedInt16(static_cast<std::int64_t>(state.WorkoutNames.size()));
  screen.ShowWorkoutNames();
}

WorkoutLoad LoadUnshownWorkout(ProgramState& state, UserInterface& screen) {
  if (TrimBlanks(state.WorkoutFileName).empty()) return WorkoutLoad::kNoName;
  const std::string path = WorkoutPath(state);
  if (!FileExists(path)) {
    screen.ShowMessage("Error: Workout file not found");
    return WorkoutLoad::kNotFound;
  }
  ReadWorkout(state, path);
  state.CurrentExercise = 0;
  return WorkoutLoad::kLoaded;
}

void ShowLoadedWorkout(const ProgramState& state, UserInterface& screen) {
  ShowLoaded(state, screen);
  if (const std::string damage = DamageOf(state); !damage.empty()) screen.ShowMessage(damage);
}

WorkoutLoad LoadWorkout(ProgramState& state, UserInterface& screen) {
  const WorkoutLoad load = LoadUnshownWorkout(state, screen);
  if (load == WorkoutLoad::kLoaded) ShowLoadedWorkout(state, screen);
  return load;
}

void SaveWorkout(ProgramState& state) {
  MakeProgramDirectoryCurrent(state);
  if (TrimBlanks(state.WorkoutFileName).empty()) return;
  MakeWorkoutFolder();
  const std::string path = WorkoutPath(state);
  ExpectKnown(state, path);
  WholeFileWriter writer(path);
  writer.Append(EncodeWorkout(state.Workout));
  try {
    // Another program may have been waited for, which has changed the file meanwhile.
    writer.Commit([&] { ExpectKnown(state, path); });
  } catch (const FileError&) {
    RememberPlaced(state, writer);
    throw;
  }
  RememberPlaced(state, writer);
}

void ReplaceWorkoutFile(ProgramState& state) {
  state.KnownFile.reset();
  const auto stamp = StampOf(WorkoutPath(state, state.ProgramDirectory));
  if (stamp) state.KnownFile = {state.WorkoutFileName, *stamp};
}

bool WorkoutChangedOnDisk(const ProgramState& state) {
  return IsOtherThanKnown(state, WorkoutPath(state, state.ProgramDirectory));
}

void ReloadChangedWorkout(ProgramState& state, UserInterface& screen) {
  if (!WorkoutChangedOnDisk(state)) return;
  const std::vector<std::string> rows = RowsOf(state);
  ReadWorkout(state, WorkoutPath(state, state.ProgramDirectory));
  if (state.CurrentExercise >= state.NumberOfExercises) state.CurrentExercise = 0;
  ShowLoaded(state, screen);
  if (RowsOf(state) == rows) return;
  const std::string damage = DamageOf(state);
  throw WorkoutReplaced(state.WorkoutFileName +
                        " was changed by another program and has been loaded again." +
                        (damage.empty() ? "" : "\r" + damage));
}

}  // namespace repvolta
