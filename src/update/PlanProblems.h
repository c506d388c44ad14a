#pragma once

#include <exception>
#include <set>
#include <string>
#include <vector>

#include "base/FileError.h"
#include "update/ClipFiles.h"
#include "update/RandomMusic.h"
#include "update/SongCopy.h"
#include "update/UpdatePlan.h"

namespace repvolta {

inline constexpr int kNoRow = -1;

/// What a problem is about.
struct PlannedPlace {
  int exercise = kNoExercise;  // index
  int row = kNoRow;            // see PlannedProblem
  std::string name = {};       // of the exercise
};

using ProblemList = std::vector<PlannedProblem>;

/// Collects the problems of a plan.
class PlannedProblems {
 public:
  void Add(ProblemList problems);

  /// Those of all first, then exercise by exercise, each in the order in which they were added.
  ProblemList Take();

 private:
  ProblemList problems_;
};

PlannedProblem PlannedWarning(PlannedProblem::Kind kind, const PlannedPlace& place,
                              std::string text);

/// `line` is what the update logs; "" where that is not known.
PlannedProblem PlannedError(PlannedProblem::Kind kind, const PlannedPlace& place, std::string text,
                            std::string line);

/// What concerns the whole update: the player, its room, the encoder, the music list, the file.
ProblemList ProblemsOfAll(const ProgramState& state, double day);

/// The folder of the last update cannot be deleted, which the error says.
PlannedProblem ProblemOfFolder(const std::exception& error);

/// Nothing can be written to the output path, or a file has the name of the workout's folder there.
ProblemList ProblemsOfCreation(const std::string& outputPath, const std::string& name);

// Those of one exercise, with its index.

/// Dates that keep a value from growing for longer than its frequency.
ProblemList ProblemsOfDates(const ExerciseRecord& exercise, int index, double day);

ProblemList ProblemsOfGrowth(const ExerciseRecord& exercise, int index,
                             const std::vector<SetGrowth>& growths);

/// What the drawing of random music has logged, and why.
ProblemList ProblemsOfDrawing(const ExerciseRecord& exercise, int index, const Drawing& drawing,
                              const std::vector<std::string>& log);

/// The clips of the exercise that cannot be joined. Names that an update speaks are told once.
ProblemList ProblemsOfClips(const PlannedExercise& exercise, int index, ClipFiles& files,
                            std::set<std::string>& spoken);

/// Values that no clips can say.
ProblemList ProblemsOfValues(const ExerciseRecord& exercise, int index);

/// More sets or songs than slots.
ProblemList ProblemsOfCounts(const ExerciseRecord& exercise, int index);

// Those of one song.

PlannedProblem ProblemOfMissing(const std::string& song, const PlannedPlace& place);
PlannedProblem ProblemOfUnreadable(const std::string& song, const FileError& error,
                                   const PlannedPlace& place);
ProblemList ProblemsOfCopy(const std::string& song, const SongCopy& copy,
                           const PlannedPlace& place);

/// A file that cannot be in the play list.
PlannedProblem ProblemOfUnlisted(const std::string& name, const std::exception& error,
                                 const PlannedPlace& place);

}  // namespace repvolta
