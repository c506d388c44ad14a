#include "editing/WorkoutSheet.h"

#include <algorithm>

#include "app/UpdateDays.h"
#include "base/Days.h"
#include "base/FileNames.h"
#include "base/Numbers.h"
#include "base/SingleByteText.h"
#include "base/Text.h"
#include "editing/GrowthTexts.h"
#include "editing/NextGrowth.h"
#include "editing/ScreenTexts.h"

namespace repvolta {
namespace {

/// The sign of a value's unit; empty where the kind of set has none.
std::string UnitSign(const ExerciseRecord& exercise, int field) {
  const bool isMetric = exercise.Units == kFalse;
  switch (exercise.SetType) {
    case kWeightAndReps:
      return field == 1 ? (isMetric ? "kg" : "lb") : "";
    case kLevelAndTime:
      return field == 1 ? "" : "min";
    case kDistanceAndSpeed:
      if (field == 1) return isMetric ? "km" : "mi";
      return isMetric ? "km/h" : "mph";
    default:
      return {};
  }
}

std::string NameWithUnit(const ExerciseRecord& exercise, int field) {
  const FieldNames names = FieldNamesOf(exercise);
  const std::string unit = UnitSign(exercise, field);
  const std::string name = ShownOnOneLine(TrimBlanks(field == 1 ? names.first : names.second));
  return unit.empty() ? name : name + " (" + unit + ")";
}

std::string MusicText(const ExerciseRecord& exercise) {
  std::string text = FormatTime(exercise.TargetExerciseTime) + " exercise";
  const int songs = std::clamp<int>(exercise.NumberOfMusicFiles, 0, kMusicSlots);
  if (songs > 0) {
    text += ", " + FormatTime(exercise.TotalMusicTime) + " music, " + std::to_string(songs) +
            (songs == 1 ? " song" : " songs");
  }
  return exercise.RandomMusic == kTrue ? text + ", random music" : text;
}

std::string GrowthText(const ExerciseRecord& exercise, const SetGrowth& growth, double today) {
  const std::string when = growth.day == today ? "with the next update" : EnglishDate(growth.day);
  return ValueNameOf(exercise, growth.field).text + ": " + when + " to " +
         ListNumberText(growth.to);
}

SheetSet SetOf(const ExerciseRecord& exercise, int set, const UpdateDays& updates, double today) {
  SheetSet row = {.number = std::to_string(set + 1),
                  .first = ListNumberText(exercise.SetValue1[set]),
                  .second = ListNumberText(exercise.SetValue2[set]),
                  .growth = {}};
  for (const int field : {1, 2}) {
    const auto growth = NextGrowth(exercise, {set, field}, updates, today);
    if (growth) row.growth.push_back(GrowthText(exercise, *growth, today));
  }
  return row;
}

SheetExercise ExerciseOf(const ProgramState& state, int index, double today) {
  const ExerciseRecord& exercise = state.Workout[index];
  SheetExercise part = {
      .name = std::to_string(index + 1) + ". " + ShownOnOneLine(exercise.ExerciseName.Trimmed()),
      .music = MusicText(exercise),
      .firstName = NameWithUnit(exercise, 1),
      .secondName = NameWithUnit(exercise, 2),
      .sets = {}};
  const int sets = std::clamp<int>(exercise.NumberOfSets, 0, kSetSlots);
  for (int set = 0; set < sets; ++set) {
    part.sets.push_back(SetOf(exercise, set, ChosenUpdateDays(state.Options), today));
  }
  if (sets == 0) part.sets.emplace_back();
  return part;
}

}  // namespace

WorkoutSheet SheetOf(const ProgramState& state, double today) {
  WorkoutSheet sheet = {.name = ShownOnOneLine(AsUtf8(BaseName(state.WorkoutFileName))),
                        .date = EnglishDate(today),
                        .exercises = {}};
  for (int i = 0; i < state.NumberOfExercises; ++i) {
    sheet.exercises.push_back(ExerciseOf(state, i, today));
  }
  return sheet;
}

}  // namespace repvolta
