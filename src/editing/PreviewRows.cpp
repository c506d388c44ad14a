#include "editing/PreviewRows.h"

#include <algorithm>

#include "base/Numbers.h"
#include "base/Text.h"
#include "editing/ScreenTexts.h"
#include "player/PlayerPlayList.h"
#include "update/PlanText.h"

namespace repvolta {
namespace {

constexpr const char* kAbout = "about ";

std::string Estimated(PlannedFile::Figures figures, const std::string& text) {
  return figures == PlannedFile::Figures::kEstimated ? kAbout + text : text;
}

std::string WhatText(const PlannedFile& file, const std::string& exercise) {
  if (file.kind == PlannedFile::Kind::kInstruction) return "Instruction of " + exercise;
  if (file.choice == PlannedFile::Choice::kExample)
    return "Random song of " + exercise + " (example)";
  return "Song of " + exercise;
}

/// The row of the exercise's music list; -1 for a song that is not in it.
int RowOfSong(const ExerciseRecord& exercise, const std::string& source) {
  const int count = std::clamp<int>(exercise.NumberOfMusicFiles, 0, kMusicSlots);
  for (int row = 0; row < count; ++row) {
    if (exercise.MusicFile[row].Trimmed() == source) return row;
  }
  return -1;
}

PreviewPlace PlaceOfFile(const PlannedFile& file, int exercise, const ExerciseSlots& workout) {
  const int row =
      file.kind == PlannedFile::Kind::kSong ? RowOfSong(workout[exercise], file.source) : -1;
  if (row < 0) return {.kind = PreviewPlace::Kind::kExercise, .exercise = exercise};
  return {.kind = PreviewPlace::Kind::kSong, .exercise = exercise, .row = row};
}

std::string DetailsOf(const PlannedFile& file, const PlannedExercise& exercise) {
  std::string details;
  if (file.kind == PlannedFile::Kind::kInstruction) {
    details = exercise.sentence.empty() ? "The instruction cannot be said."
                                        : "Sentence: " + exercise.sentence;
    details += "\nWords: " + WordsText(exercise.clips);
  } else if (file.choice == PlannedFile::Choice::kExample) {
    details = "The update draws anew; this time it was: " + file.source;
  } else {
    details = "Copied from: " + file.source;
  }
  if (!file.title.empty()) details += "\nTitle on the player: " + file.title;
  return details;
}

std::vector<PreviewFile> FilesOf(const UpdatePlan& plan, const ExerciseSlots& workout) {
  std::vector<PreviewFile> files;
  int index = 0;
  for (const PlannedExercise& exercise : plan.exercises) {
    for (const PlannedFile& file : exercise.files) {
      files.push_back({.kind = file.kind == PlannedFile::Kind::kInstruction
                                   ? PreviewFile::Kind::kInstruction
                                   : PreviewFile::Kind::kSong,
                       .exercise = index,
                       .cells = {file.name, WhatText(file, exercise.name),
                                 file.seconds == kUnknownSeconds
                                     ? "unknown"
                                     : Estimated(file.figures, PlayTimeText(file.seconds)),
                                 Estimated(file.figures, SizeText(file.bytes))},
                       .details = DetailsOf(file, exercise),
                       .place = PlaceOfFile(file, index, workout)});
    }
    ++index;
  }
  return files;
}

std::string FieldNameOf(const ExerciseRecord& exercise, int field) {
  const FieldNames names = FieldNamesOf(exercise);
  const std::string name(TrimBlanks(field == 1 ? names.first : names.second));
  return name.empty() ? "Field " + std::to_string(field) : name;
}

std::vector<PreviewGrowth> GrowthOf(const UpdatePlan& plan, const ExerciseSlots& workout) {
  std::vector<PreviewGrowth> rows;
  int index = 0;
  for (const PlannedExercise& exercise : plan.exercises) {
    for (const SetGrowth& growth : exercise.growth) {
      rows.push_back({exercise.name, std::to_string(growth.set + 1),
                      FieldNameOf(workout[index], growth.field), ListNumberText(growth.from),
                      growth.failure ? "stays: " + *growth.failure : ListNumberText(growth.to)});
    }
    ++index;
  }
  return rows;
}

std::string CountText(std::size_t count, const std::string& one) {
  return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

std::string HeadlineOf(const UpdatePlan& plan, std::size_t files) {
  return "What an update of " + plan.workout + " would do on " + DateText(plan.day) + ": " +
         CountText(files, "file") + (plan.folder.empty() ? "" : " in " + plan.folder);
}

LineKind KindOf(const PlannedProblem& problem) {
  return problem.severity == PlannedProblem::Severity::kError ? LineKind::kError
                                                              : LineKind::kWarning;
}

std::string OutlookOf(const UpdatePlan& plan) {
  ProblemCount count;
  for (const PlannedProblem& problem : plan.problems) {
    count.Add(KindOf(problem));
  }
  const std::string text = count.Text();
  return text.empty() ? "Nothing will go wrong, as far as it can be known before."
                      : "What will go wrong: " + text;
}

std::string RoomText(std::uint64_t free) {
  constexpr std::uint64_t kMegabyte = 1'000'000;
  return "There is room for " + std::to_string(free / kMegabyte) + " MB on the player.";
}

std::string TotalsOf(const UpdatePlan& plan) {
  const bool isEstimated = std::any_of(
      plan.exercises.begin(), plan.exercises.end(), [](const PlannedExercise& exercise) {
        return std::any_of(exercise.files.begin(), exercise.files.end(), [](const auto& file) {
          return file.figures == PlannedFile::Figures::kEstimated ||
                 file.choice == PlannedFile::Choice::kExample;
        });
      });
  const std::string about = isEstimated ? kAbout : "";
  return "Together " + about + PlayTimeText(plan.seconds) + " and " + about + SizeText(plan.bytes) +
         ". " + (plan.room ? RoomText(plan.room->free) : "The room on the player is not known.");
}

}  // namespace

std::string WordsText(const std::vector<Clip>& clips) {
  std::string text;
  for (const Clip& clip : clips) text += (text.empty() ? "" : ", ") + clip.text;
  return text.empty() ? "none" : text;
}

PreviewPlace PlaceOf(const PlannedProblem& problem) {
  using Kind = PlannedProblem::Kind;
  const auto at = [&](PreviewPlace::Kind kind) {
    return PreviewPlace{.kind = kind, .exercise = problem.exercise, .row = problem.row};
  };
  switch (problem.kind) {
    case Kind::kSongGone:
    case Kind::kOddSong:
      return at(PreviewPlace::Kind::kSong);
    case Kind::kUnspeakable:
    case Kind::kGrowth:
    case Kind::kDateAhead:
      return at(PreviewPlace::Kind::kSet);
    case Kind::kNoRecording:
      return at(PreviewPlace::Kind::kExercise);
    case Kind::kNoSongFits:
      return at(PreviewPlace::Kind::kTargetTime);
    case Kind::kMusicListEmpty:
    case Kind::kMusicListOld:
      return {.kind = PreviewPlace::Kind::kRandomMusicList};
    case Kind::kNoOutputPath:
    case Kind::kLackOfRoom:
      return {.kind = PreviewPlace::Kind::kOutputPath};
    case Kind::kDamagedWorkout:
    case Kind::kNotSaved:
      return {.kind = PreviewPlace::Kind::kWorkout};
    case Kind::kNoEncoder:
      break;
  }
  return {.kind = PreviewPlace::Kind::kGuide};
}

Preview PreviewOf(const UpdatePlan& plan, const ExerciseSlots& workout) {
  Preview preview;
  preview.files = FilesOf(plan, workout);
  preview.headline = HeadlineOf(plan, preview.files.size());
  preview.outlook = OutlookOf(plan);
  for (const PlannedProblem& problem : plan.problems) {
    preview.problems.push_back(
        {.kind = KindOf(problem), .text = problem.text, .place = PlaceOf(problem)});
  }
  preview.growth = GrowthOf(plan, workout);
  preview.totals = TotalsOf(plan);
  return preview;
}

}  // namespace repvolta
