#include "app/WorkoutFiles.h"

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>

#include "app/RecordFormat.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/Numbers.h"
#include "base/ProgramFiles.h"
#include "base/WholeFile.h"

namespace repvolta {
namespace {

bool IsFileKnown(const ProgramState& state) {
  return state.KnownFile && state.KnownFile->name == state.WorkoutFileName;
}

/// The folder is searched for a name in another case only when the file is not where it was last
/// found.
std::string WorkoutPath(const ProgramState& state, const std::string& directory = "") {
  const std::string folder = directory + kWorkoutFolder;
  if (IsFileKnown(state) && FileIsReachable(folder + state.KnownFile->file)) {
    return folder + state.KnownFile->file;
  }
  return ExistingName(folder + state.WorkoutFileName);
}

void Remember(ProgramState& state, const std::string& path, const std::optional<FileStamp>& stamp) {
  if (stamp) state.KnownFile = {state.WorkoutFileName, FileName(path), *stamp};
}

bool IsOtherThanKnown(const ProgramState& state, const std::string& path) {
  if (!IsFileKnown(state)) return false;
  const std::optional<FileStamp> stamp = StampOf(path);
  return stamp && *stamp != state.KnownFile->stamp;
}

/// Throws FileError when the file's content was neither loaded nor saved here.
void ExpectKnown(const ProgramState& state, const std::string& path) {
  constexpr const char* kFailure = "could not be written";
  if (IsOtherThanKnown(state, path)) {
    throw FileError(path, kFailure, "Another program has changed it meanwhile");
  }
  if (!IsFileKnown(state) && FileExists(path)) {
    throw FileError(path, kFailure, "It holds another workout, which was not loaded");
  }
}

void MakeWorkoutFolder() {
  const std::string folder(kWorkoutFolder);
  if (mkdir(folder.c_str(), 0777) != 0 && errno != EEXIST) {
    throw FileError(folder, "could not be created", errno);
  }
}

void ReadWorkout(ProgramState& state, const std::string& path) {
  // The stamp is taken before the content, so that a change in between is noticed later.
  const std::optional<FileStamp> stamp = StampOf(path);
  state.Workout = DecodeWorkout(ReadWholeFile(path, kWorkoutFileSize));
  state.KnownFile.reset();
  Remember(state, path, stamp);
  state.NumberOfExercises = CountExercises(state.Workout);
}

}  // namespace

void LoadWorkoutNames(ProgramState& state) {
  MakeFolder(kWorkoutFolder);
  ReadWorkoutNames(state);
}

void ReadWorkoutNames(ProgramState& state) {
  state.WorkoutNames = ListFiles(kWorkoutFolder, kWorkoutExtension);
  state.NumberOfWorkouts = CheckedInt16(static_cast<std::int64_t>(state.WorkoutNames.size()));
}

WorkoutLoad LoadWorkout(ProgramState& state) {
  if (TrimBlanks(state.WorkoutFileName).empty()) return WorkoutLoad::kNoName;
  const std::string path = WorkoutPath(state);
  if (!FileExists(path)) return WorkoutLoad::kNotFound;
  ReadWorkout(state, path);
  state.CurrentExercise = 0;
  return WorkoutLoad::kLoaded;
}

std::vector<std::string> SongsOf(const ExerciseSlots& workout) {
  std::vector<std::string> songs;
  for (const ExerciseRecord& exercise : workout) {
    const int count = std::min<int>(exercise.NumberOfMusicFiles, kMusicSlots);
    for (int i = 0; i < count; ++i) songs.push_back(exercise.MusicFile[i].Trimmed());
  }
  return songs;
}

std::vector<std::string> SongsOfAllWorkoutFiles() {
  std::vector<std::string> songs;
  for (const std::string& name : ListFiles(kWorkoutFolder, kWorkoutExtension)) {
    const Bytes file = ReadWholeFile(kWorkoutFolder + name, kWorkoutFileSize);
    for (std::string& song : SongsOf(DecodeWorkout(file))) songs.push_back(std::move(song));
  }
  return songs;
}

std::int16_t CountExercises(ExerciseSlots& workout) {
  for (std::int16_t i = 0; i < MaxExercises; ++i) {
    workout[i].ExerciseName = workout[i].ExerciseName.Trimmed();
    if (workout[i].ExerciseName.IsBlank()) return i;  // quirk 103
  }
  return MaxExercises;
}

std::string PathOfWorkout(const ProgramState& state) { return WorkoutPath(state); }

void SaveWorkout(ProgramState& state) {
  MakeProgramDirectoryCurrent(state);
  if (TrimBlanks(state.WorkoutFileName).empty()) return;
  MakeWorkoutFolder();
  const std::string path = WorkoutPath(state);
  ExpectKnown(state, path);
  WholeFileWriter writer(path);
  writer.Append(EncodeWorkout(state.Workout));
  try {
    // The file is checked again, because the writer may have waited for another program that
    // changed it.
    writer.Commit([&] { ExpectKnown(state, path); });
  } catch (const FileError&) {
    Remember(state, path, writer.Placed());
    throw;
  }
  Remember(state, path, writer.Placed());
}

void ReplaceWorkoutFile(ProgramState& state) {
  state.KnownFile.reset();
  const std::string path = WorkoutPath(state, state.ProgramDirectory);
  Remember(state, path, StampOf(path));
}

bool WorkoutChangedOnDisk(const ProgramState& state) {
  return IsOtherThanKnown(state, WorkoutPath(state, state.ProgramDirectory));
}

void ReadWorkoutAgain(ProgramState& state) {
  ReadWorkout(state, WorkoutPath(state, state.ProgramDirectory));
  if (state.CurrentExercise >= state.NumberOfExercises) state.CurrentExercise = 0;
}

}  // namespace repvolta
