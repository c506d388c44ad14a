#include "update/PlanProblems.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "base/FileNames.h"
#include "base/Numbers.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "instruction/MergeWAVfiles.h"
#include "sound/WavFormat.h"

namespace repvolta {
namespace {

using Kind = PlannedProblem::Kind;

std::string SetOf(const ExerciseRecord& exercise, int set) {
  return "Set " + std::to_string(set + 1) + " of " + exercise.ExerciseName.Trimmed();
}

/// Sets that have a slot.
int SetsOf(const ExerciseRecord& exercise) {
  return std::clamp<int>(exercise.NumberOfSets, 0, kSetSlots);
}

std::string LineOf(const std::string& failure) { return "ERROR: " + failure; }

/// Follows the joining of an instruction's clips.
class ClipCheck {
 public:
  ClipCheck(const PlannedExercise& exercise, int index)
      : name_(exercise.name), place_{.exercise = index} {}

  void LookAtName(const Clip& clip, const ClipFiles::Found& found, std::set<std::string>& spoken) {
    isTargetShort_ = found.size.value_or(kWavHeaderSize) < kWavHeaderSize;
    if (found.size || !spoken.insert(found.path).second) return;
    problems_.push_back(PlannedWarning(
        Kind::kNoRecording, place_,
        "The name \"" + clip.text +
            "\" has no recording, so the computer will speak it. Record it if you prefer another "
            "voice."));
  }

  void LookAtWord(const Clip& clip, const ClipFiles::Found& found) {
    const std::string& file = found.path;
    if (!found.size) {
      Add(clip, "has no recording", file, MissingClipLine(file));
    } else if (*found.size < kWavHeaderSize) {
      Add(clip, "has a damaged recording", file, NotJoinedLine(kWorkingWav, file, kSourceTooShort));
    } else if (isTargetShort_) {
      Add(clip, "follows a damaged recording of the name", "the recording of the name",
          NotJoinedLine(kWorkingWav, file, TargetTooShortText(kWorkingWav)));
    }
    // Joining gives a target that is too short its numbers.
    if (found.size) isTargetShort_ = false;
  }

  ProblemList TakeProblems() { return std::move(problems_); }

 private:
  void Add(const Clip& clip, const char* what, const std::string& toRestore,
           const std::string& line) {
    if (!lines_.insert(line).second) return;
    problems_.push_back(PlannedError(Kind::kNoRecording, place_,
                                     "The word \"" + clip.text + "\" " + what +
                                         ", so the sentence of " + name_ +
                                         " lacks something. Restore " + toRestore + ".",
                                     line));
  }

  std::string name_;
  PlannedPlace place_;
  bool isTargetShort_ = false;
  std::set<std::string> lines_;
  ProblemList problems_;
};

}  // namespace

PlannedProblem PlannedWarning(Kind kind, const PlannedPlace& place, std::string text) {
  return {.kind = kind,
          .severity = PlannedProblem::Severity::kWarning,
          .exercise = place.exercise,
          .row = place.row,
          .text = std::move(text),
          .line = {}};
}

PlannedProblem PlannedError(Kind kind, const PlannedPlace& place, std::string text,
                            std::string line) {
  PlannedProblem problem = PlannedWarning(kind, place, std::move(text));
  problem.severity = PlannedProblem::Severity::kError;
  problem.line = std::move(line);
  return problem;
}

void PlannedProblems::Add(ProblemList problems) {
  std::move(problems.begin(), problems.end(), std::back_inserter(problems_));
}

ProblemList PlannedProblems::Take() {
  std::ranges::stable_sort(problems_, {}, &PlannedProblem::exercise);
  return std::move(problems_);
}

ProblemList ProblemsOfDates(const ExerciseRecord& exercise, int index, double day) {
  ProblemList problems;
  const auto look = [&](int set, int field, float frequency, double from) {
    // A new frequency sets its date to that many days ahead; what lies further off, a wrong clock
    // has set.
    if (!(frequency > 0) || from <= day + static_cast<double>(frequency)) return;
    if (std::isnan(from)) {
      problems.push_back(PlannedWarning(
          Kind::kDateAhead, {.exercise = index, .row = set},
          SetOf(exercise, set) + ": field " + std::to_string(field) +
              " never grows, because its date is impossible. Enter the days again, which sets the "
              "date anew."));
      return;
    }
    problems.push_back(PlannedWarning(
        Kind::kDateAhead, {.exercise = index, .row = set},
        SetOf(exercise, set) + ": field " + std::to_string(field) +
            " does not grow within the next " +
            std::to_string(std::llround(std::min(from - day, 1e9))) +
            " days, because its date lies in the future; perhaps the clock was wrong. Enter the "
            "days again, which sets the date anew."));
  };
  for (int set = 0; set < SetsOf(exercise); ++set) {
    look(set, 1, exercise.SetFrequency1[set], exercise.NextUpdate1[set]);
    look(set, 2, exercise.SetFrequency2[set], exercise.NextUpdate2[set]);
  }
  return problems;
}

ProblemList ProblemsOfGrowth(const ExerciseRecord& exercise, int index,
                             const std::vector<SetGrowth>& growths) {
  ProblemList problems;
  for (const SetGrowth& growth : growths) {
    if (!growth.failure) continue;
    problems.push_back(PlannedError(Kind::kGrowth, {.exercise = index, .row = growth.set},
                                    SetOf(exercise, growth.set) + ": field " +
                                        std::to_string(growth.field) + " cannot grow. " +
                                        *growth.failure + ". Enter a smaller value or increment.",
                                    LineOf(*growth.failure)));
  }
  return problems;
}

ProblemList ProblemsOfClips(const PlannedExercise& exercise, int index, ClipFiles& files,
                            std::set<std::string>& spoken) {
  ClipCheck check(exercise, index);
  for (const Clip& clip : exercise.clips) {
    if (clip.kind == Clip::Kind::kName) {
      check.LookAtName(clip, files.Of(clip), spoken);
    } else {
      check.LookAtWord(clip, files.Of(clip));
    }
  }
  return check.TakeProblems();
}

ProblemList ProblemsOfValues(const ExerciseRecord& exercise, int index) {
  ProblemList problems;
  if (exercise.SetType < kWeightAndReps || exercise.SetType > kDistanceAndSpeed) return problems;
  for (int set = 0; set < SetsOf(exercise); ++set) {
    for (const float value : {exercise.SetValue1[set], exercise.SetValue2[set]}) {
      // What is left unsaid of other numbers is a fraction.
      const float rest = std::abs(WordsOfNumber(value).rest);
      if (rest < 1) continue;
      problems.push_back(
          PlannedWarning(Kind::kUnspeakable, {.exercise = index, .row = set},
                         SetOf(exercise, set) + " has the value " + ListNumberText(value) +
                             ", which cannot be said: only numbers from 0 to 9999 can."));
    }
  }
  return problems;
}

ProblemList ProblemsOfCounts(const ExerciseRecord& exercise, int index) {
  ProblemList problems;
  const PlannedPlace place{.exercise = index};
  const auto look = [&](Kind kind, const char* what, const auto& slots, int count) {
    const auto size = static_cast<int>(slots.end() - slots.begin());
    if (count <= size) return;
    try {
      static_cast<void>(slots[size]);
    } catch (const std::out_of_range& error) {
      problems.push_back(
          PlannedError(kind, place,
                       exercise.ExerciseName.Trimmed() + " has more " + what +
                           " than there can be, because the workout is damaged. Put a "
                           "backup of its file in its place.",
                       LineOf(error.what())));
    }
  };
  look(Kind::kUnspeakable, "sets", exercise.SetValue1, exercise.NumberOfSets);
  look(Kind::kDamagedWorkout, "songs", exercise.MusicFile, exercise.NumberOfMusicFiles);
  return problems;
}

PlannedProblem ProblemOfMissing(const std::string& song, const PlannedPlace& place) {
  return PlannedError(Kind::kSongGone, place,
                      "A song of " + place.name + " is gone: " + song +
                          ". Put it back, or remove it from the list.",
                      MissingSongLine(song));
}

PlannedProblem ProblemOfUnreadable(const std::string& song, const FileError& error,
                                   const PlannedPlace& place) {
  return PlannedError(Kind::kSongGone, place,
                      "A song of " + place.name + " cannot be read: " + song + ": " +
                          error.Reason() + ". Mend that, or remove it from the list.",
                      LineOf(NotCopiedText(song, error)));
}

ProblemList ProblemsOfCopy(const std::string& song, const SongCopy& copy,
                           const PlannedPlace& place) {
  if (copy.errorLine.empty()) return {};
  return {
      PlannedError(Kind::kOddSong, place,
                   "The copy of " + FileName(song) + " for " + place.name +
                       " keeps its old tags, because the file is unusual. It is used all the same.",
                   copy.errorLine)};
}

PlannedProblem ProblemOfUnlisted(const std::string& name, const std::exception& error,
                                 const PlannedPlace& place) {
  return PlannedError(
      Kind::kOddSong, place,
      ShownOnOneLine(name) + " for " + place.name +
          " will not be in the play list, because there is a line break in its path. Give "
          "the file, the workout or the output path another name.",
      LineOf(error.what()));
}

}  // namespace repvolta
