#include "editing/EarlierVersions.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

#include "base/Days.h"
#include "base/File.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "editing/WorkoutDifference.h"

namespace repvolta {
namespace {

constexpr const char* kWouldChange = "What would change";
constexpr const char* kIsInIt = "What is in it";

std::string TwoDigits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

/// "Sun 22 Nov 2026, 05:32"
std::string TimeText(double time) {
  constexpr int kMinutesOfHour = 60;
  constexpr double kMinutesOfDay = 1440;
  // Half a second more than the name says, so that rounding takes no minute away.
  constexpr double kHalfSecond = 0.5 / 86400;
  const double day = std::floor(time);
  const int minutes = static_cast<int>((time - day + kHalfSecond) * kMinutesOfDay);
  return EnglishDate(day) + ", " + TwoDigits(minutes / kMinutesOfHour) + ":" +
         TwoDigits(minutes % kMinutesOfHour);
}

std::string ReasonText(BeforeWhat before) {
  switch (before) {
    case BeforeWhat::kChange:
      return "before the first change of the day";
    case BeforeWhat::kUpdate:
      return "before an update";
    case BeforeWhat::kReplacement:
      return "before a new workout took its name";
    case BeforeWhat::kDeletion:
      return "before it was deleted";
    case BeforeWhat::kRestore:
      break;
  }
  return "before an earlier version was restored";
}

std::string ContentText(const Version& version) {
  try {
    const WorkoutContent content = ReadWorkoutContent(version.path);
    return content.damage.empty() ? ExercisesText(content.exercises) : "damaged";
  } catch (const FileError&) {
    return "cannot be read";
  }
}

std::string Lines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += (text.empty() ? "" : "\n") + line;
  return text;
}

std::string DescriptionOf(const WorkoutContent& content) {
  const std::string lines = Lines(WorkoutLines(content.exercises));
  return lines.empty() ? ExercisesText(content.exercises) : lines;
}

VersionView Unreadable(const Version& version, const FileError& error) {
  VersionView view{.heading = kWouldChange, .text = {}};
  view.isGone = !FileIsReachable(version.path);
  view.text = view.isGone ? "This version is no longer there."
                          : std::string("This version cannot be restored. ") + error.what();
  return view;
}

VersionView Compared(const WorkoutContent& then, const std::string& path) {
  const WorkoutContent now = ReadWorkoutContent(path);
  if (!now.damage.empty()) {
    return {.heading = kIsInIt,
            .text = "The workout as it is today is damaged and cannot be compared. " + now.damage +
                    "\n" + DescriptionOf(then),
            .canBeRestored = true};
  }
  const std::string text =
      then.bytes == now.bytes ? "" : Lines(WorkoutDifference(then.exercises, now.exercises));
  return {.heading = kWouldChange,
          .text = text.empty() ? "There is no difference." : text,
          .canBeRestored = !text.empty()};
}

/// A file that cannot be read cannot be kept, either, and so it is not replaced.
VersionView ComparedIfPossible(const WorkoutContent& then, const std::string& path) {
  try {
    return Compared(then, path);
  } catch (const FileError& error) {
    return {.heading = kIsInIt,
            .text = std::string("The workout as it is today cannot be read, so it is not "
                                "replaced. ") +
                    error.what() + "\n" + DescriptionOf(then)};
  }
}

VersionView ViewOf(const WorkoutContent& then, const std::string& fileName) {
  if (!then.damage.empty()) {
    return {.heading = kWouldChange,
            .text = "This version is damaged and cannot be restored. " + then.damage};
  }
  const auto path = FindFile(kWorkoutFolder + fileName);
  if (path) return ComparedIfPossible(then, *path);
  return {.heading = kIsInIt, .text = DescriptionOf(then), .canBeRestored = true};
}

}  // namespace

EarlierVersions::EarlierVersions(std::string present) : present_(std::move(present)) { Refresh(); }

void EarlierVersions::Refresh() { workouts_ = ListKeptWorkouts(present_); }

bool EarlierVersions::AreNone() const {
  return std::ranges::all_of(workouts_, [](const KeptWorkout& kept) {
    return kept.versions.empty() && kept.failure.empty();
  });
}

std::vector<std::string> EarlierVersions::Workouts() const {
  std::vector<std::string> names;
  names.reserve(workouts_.size());
  for (const KeptWorkout& kept : workouts_) {
    names.push_back(BaseName(kept.fileName) + (kept.isDeleted ? " (deleted)" : ""));
  }
  return names;
}

std::vector<VersionRow> EarlierVersions::Rows(std::size_t workout) const {
  std::vector<VersionRow> rows;
  rows.reserve(workouts_.at(workout).versions.size());
  for (const Version& version : workouts_.at(workout).versions) {
    rows.push_back(
        {TimeText(version.name.time), ReasonText(version.name.before), ContentText(version)});
  }
  return rows;
}

std::string EarlierVersions::Remark(std::size_t workout) const {
  const KeptWorkout& kept = workouts_.at(workout);
  if (!kept.failure.empty()) return kept.failure;
  return kept.versions.empty() ? "No version of " + BaseName(kept.fileName) + " is kept." : "";
}

VersionView EarlierVersions::View(std::size_t workout, std::size_t version) const {
  const KeptWorkout& kept = workouts_.at(workout);
  const Version& shown = kept.versions.at(version);
  try {
    return ViewOf(ReadWorkoutContent(shown.path), kept.fileName);
  } catch (const FileError& error) {
    return Unreadable(shown, error);
  }
}

std::optional<ChosenVersion> EarlierVersions::Read(std::size_t workout, std::size_t version) const {
  const KeptWorkout& kept = workouts_.at(workout);
  try {
    WorkoutContent content = ReadWorkoutContent(kept.versions.at(version).path);
    if (!content.damage.empty()) return std::nullopt;
    return ChosenVersion{kept.fileName, std::move(content.bytes)};
  } catch (const FileError&) {
    return std::nullopt;
  }
}

}  // namespace repvolta
