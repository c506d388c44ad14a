#include <algorithm>
#include <cerrno>

#include "app/WorkoutDamage.h"
#include "app/WorkoutFiles.h"
#include "base/File.h"
#include "base/FileError.h"
#include "base/FileStatus.h"
#include "base/Numbers.h"
#include "base/ProgramFiles.h"
#include "player/OutputPath.h"
#include "player/PlayerDisk.h"
#include "update/Encoder.h"
#include "update/MusicListAge.h"
#include "update/PlanProblems.h"

namespace repvolta {
namespace {

using Kind = PlannedProblem::Kind;

bool WantsRandomMusic(const ProgramState& state) {
  const auto used =
      std::span(state.Workout.begin(), static_cast<std::size_t>(state.NumberOfExercises));
  return std::ranges::any_of(
      used, [](const ExerciseRecord& exercise) { return exercise.RandomMusic == kTrue; });
}

bool IsMusicListEmpty() { return SizeIfReachable(kMusicList).value_or(0) == 0; }

ProblemList ProblemsOfPlayer(const ProgramState& state, double day) {
  if (IsOutputPathMissing(state.Settings)) {
    return {PlannedError(
        Kind::kNoOutputPath, {},
        "No output path has been chosen. Choose it on the tab \"Program Settings\".", "")};
  }
  const std::string missing = WhyPlayerIsMissing(state);
  if (!missing.empty()) {
    return {PlannedError(Kind::kNoOutputPath, {},
                         missing + ". Connect the player, or choose another output path.", "")};
  }
  const auto lack = FindLackOfRoom({&state}, day);
  if (!lack) return {};
  return {PlannedWarning(Kind::kLackOfRoom, {},
                         state.WorkoutFileName + " " + TextOf(*lack) +
                             ". Make room on the player, or choose fewer songs.")};
}

void AddDamage(const ProgramState& state, ProblemList& problems) {
  for (const std::string& text : {OddSizeOf(state), DamageOf(state)}) {
    if (text.empty()) continue;
    problems.push_back(PlannedWarning(
        Kind::kDamagedWorkout, {},
        text +
            " Put a backup of the file in its place before you update, which saves the damage."));
  }
}

/// Why the drawing has found no song, or not enough.
PlannedProblem ProblemOfEnd(const ExerciseRecord& exercise, const PlannedPlace& place,
                            const Drawing& drawing, const std::string& line) {
  if (IsMusicListEmpty()) {
    return PlannedError(Kind::kMusicListEmpty, place,
                        place.name +
                            " wants random music, but the random music list is empty. Choose your "
                            "music path, and compile the list.",
                        line);
  }
  if (!drawing.missing.empty()) {
    return PlannedError(Kind::kMusicListOld, place,
                        "The random music list has a song that is gone: " + drawing.missing +
                            ". Compile the list again.",
                        line);
  }
  return PlannedError(Kind::kNoSongFits, place,
                      (drawing.songs.empty() ? "No song" : "No further song") +
                          std::string(" of the random music list fits the target time of ") +
                          place.name + ", " + FormatTime(exercise.TargetExerciseTime) +
                          ": it may be at most twice as long. Set a longer target time, or add "
                          "shorter songs and compile the list again.",
                      line);
}

/// A workout is saved by a new file beside the old one.
void AddUnsaved(const ProgramState& state, ProblemList& problems) {
  const int error = ErrorOfWritingTo(kWorkoutFolder);
  // A folder that is not there will be made.
  if (error == 0 || error == ENOENT) return;
  const FileError failure(PathOfWorkout(state), "could not be written", error);
  problems.push_back(PlannedError(Kind::kNotSaved, {},
                                  std::string("What grows cannot be saved, because ") +
                                      failure.what() + ". Get the right to write there.",
                                  ""));
}

}  // namespace

ProblemList ProblemsOfAll(const ProgramState& state, double day) {
  ProblemList problems = ProblemsOfPlayer(state, day);
  AddUnsaved(state, problems);
  AddDamage(state, problems);
  if (EncodingNow() == Encoding::kNoEncoder) {
    problems.push_back(PlannedWarning(
        Kind::kNoEncoder, {},
        "There is no encoder, so the instructions stay WAV files, which are large and which not "
        "every player plays. Install lame."));
  }
  if (!WantsRandomMusic(state) || IsMusicListEmpty()) return problems;
  const std::string change = WhyMusicListIsOld(state);
  if (!change.empty()) {
    problems.push_back(PlannedWarning(
        Kind::kMusicListOld, {},
        "The random music list is older than your music: " + change + ". Compile the list again."));
  }
  return problems;
}

PlannedProblem ProblemOfFolder(const std::exception& error) {
  return PlannedError(Kind::kNoOutputPath, {},
                      std::string("The update cannot write its files, because ") + error.what() +
                          ". Choose another output path, or give the workout another name.",
                      std::string("ERROR: ") + error.what());
}

ProblemList ProblemsOfCreation(const std::string& outputPath, const std::string& name) {
  const auto isThere = StatusOf(outputPath + "/" + name, Links::kFollowed);
  const bool isInTheWay = isThere && !S_ISDIR(isThere->st_mode);
  const int error = isInTheWay ? EEXIST : ErrorOfWritingTo(outputPath);
  // A player that is not there is told in words of its own.
  if (error == 0 || error == ENOENT || error == ENOTDIR) return {};
  PlannedProblem problem =
      ProblemOfFolder(FileError(outputPath + "/" + name, "could not be created", error));
  // What the update logs depends on the files of the last one.
  problem.line.clear();
  return {problem};
}

ProblemList ProblemsOfDrawing(const ExerciseRecord& exercise, int index, const Drawing& drawing,
                              const std::vector<std::string>& log) {
  ProblemList problems;
  const PlannedPlace place{.exercise = index, .name = exercise.ExerciseName.Trimmed()};
  for (const std::string& line : log) {
    if (!line.starts_with("ERROR")) continue;
    // The drawing ends with its last error.
    if (drawing.endedEarly && &line == &log.back()) {
      problems.push_back(ProblemOfEnd(exercise, place, drawing, line));
    } else {
      problems.push_back(PlannedError(Kind::kNoSongFits, place,
                                      "Random music for " + place.name + " cannot be drawn as it " +
                                          "should be: " + line.substr(line.find(' ') + 1) +
                                          ". Choose songs by hand, or another target time.",
                                      line));
    }
  }
  return problems;
}

}  // namespace repvolta
