#include "editing/ScreenTexts.h"

#include <QDate>
#include <QLocale>
#include <cmath>
#include <cstdlib>
#include <stdexcept>

#include "base/Numbers.h"

namespace repvolta {
namespace {

/// 30 December 1899.
constexpr qint64 kJulianDayOfDateZero = 2415019;

/// An invalid date must not keep the other values from being shown.
std::string DaysOrNever(float frequency, double nextUpdate, double now) {
  try {
    return DaysText(frequency, nextUpdate, now);
  } catch (const std::overflow_error&) {
    return "Never";
  }
}

/// "55 s", "2:10"
std::string ShortTime(int seconds) {
  constexpr int kMinute = 60;
  if (seconds < kMinute) return std::to_string(seconds) + " s";
  const std::string rest = std::to_string(seconds % kMinute);
  return std::to_string(seconds / kMinute) + (rest.size() == 1 ? ":0" : ":") + rest;
}

}  // namespace

FieldNames FieldNamesOf(const ExerciseRecord& exercise) {
  switch (exercise.SetType) {
    case kWeightAndReps:
      return {"Weight", "Reps"};
    case kLevelAndTime:
      return {"Level", "Time"};
    case kDistanceAndSpeed:
      return {"Distance", "Speed"};
    case kUserDefined:
      return {exercise.UserField1Name.Text(), exercise.UserField2Name.Text()};
    default:
      return {};
  }
}

std::string SummaryLine(const ExerciseRecord& exercise) {
  std::array<char, 16> sets;
  // Always fits.
  static_cast<void>(std::snprintf(sets.data(), sets.size(), "%02d", exercise.NumberOfSets));
  return std::string(sets.data()) + " sets, " + FormatTime(exercise.TargetExerciseTime) +
         " Exercise, " + FormatTime(exercise.TotalMusicTime) + " Music" +
         (exercise.RandomMusic == kTrue ? ", Random Music" : "");
}

std::string DaysText(float frequency, double nextUpdate, double now) {
  if (!(frequency > 0)) return "N/A";
  const double days = std::nearbyint(nextUpdate + static_cast<double>(frequency) - now);
  // Past days need no conversion to 16 bits, however long ago they are.
  return days < 0 ? "Due" : StandardNumberText(RoundToInt16(days));
}

std::string NextUpdateText(const ExerciseRecord& exercise, int set, double now) {
  return DaysOrNever(exercise.SetFrequency1[set], exercise.NextUpdate1[set], now) + ", " +
         DaysOrNever(exercise.SetFrequency2[set], exercise.NextUpdate2[set], now);
}

std::string DateText(double date) {
  constexpr double kLimit = 1e7;  // days; more years than a calendar shows
  if (!(std::abs(date) < kLimit)) throw std::overflow_error("There is no such date");
  const QDate day =
      QDate::fromJulianDay(kJulianDayOfDateZero + static_cast<qint64>(std::floor(date)));
  return QLocale().toString(day, QLocale::ShortFormat).toStdString();
}

std::vector<std::string> ExerciseRows(const ProgramState& state) {
  std::vector<std::string> rows;
  for (int i = 0; i < state.NumberOfExercises; ++i) {
    const auto& name = state.Workout[i].ExerciseName;
    if (!name.IsBlank()) rows.push_back(name.Trimmed());
  }
  return rows;
}

std::vector<std::string> SummaryRows(const ProgramState& state) {
  std::vector<std::string> rows;
  rows.reserve(kExerciseSlots);
  for (int i = 0; i < state.NumberOfExercises; ++i) rows.push_back(SummaryLine(state.Workout[i]));
  return rows;
}

std::string TotalMusicTimeText(const ProgramState& state) {
  std::int32_t total = 0;
  for (int i = 0; i < state.NumberOfExercises; ++i) total += state.Workout[i].TotalMusicTime;
  return FormatTime(CheckedInt16(total));
}

std::vector<std::string> MusicRows(const ExerciseRecord& exercise) {
  std::vector<std::string> rows;
  rows.reserve(kMusicSlots);
  for (int i = 0; i < exercise.NumberOfMusicFiles; ++i) {
    rows.push_back(exercise.MusicFile[i].Trimmed());
  }
  return rows;
}

std::string TargetText(const ExerciseRecord& exercise) {
  if (exercise.RandomMusic == kTrue || exercise.NumberOfMusicFiles <= 0 ||
      exercise.TargetExerciseTime <= 0) {
    return {};
  }
  const int difference = exercise.TotalMusicTime - exercise.TargetExerciseTime;
  if (difference == 0) return "exactly as long as the target";
  return ShortTime(std::abs(difference)) +
         (difference > 0 ? " longer than the target" : " short of the target");
}

SetColumns SetRows(const ExerciseRecord& exercise, double now) {
  SetColumns columns;
  for (int i = 0; i < exercise.NumberOfSets; ++i) {
    columns[kSetList1].push_back(ListNumberText(exercise.SetValue1[i]));
    columns[kSetList2].push_back(ListNumberText(exercise.SetValue2[i]));
    columns[kSetListInc1].push_back(ListNumberText(exercise.SetIncrement1[i]));
    columns[kSetListInc2].push_back(ListNumberText(exercise.SetIncrement2[i]));
    columns[kFreqList1].push_back(ListNumberText(exercise.SetFrequency1[i]));
    columns[kFreqList2].push_back(ListNumberText(exercise.SetFrequency2[i]));
    columns[kNextUpdateList].push_back(NextUpdateText(exercise, i, now));
  }
  return columns;
}

std::string SetTypeName(std::int16_t type) {
  switch (type) {
    case kWeightAndReps:
      return "Weight/Reps";
    case kLevelAndTime:
      return "Level/Time";
    case kDistanceAndSpeed:
      return "Distance/Speed";
    case kUserDefined:
      return "User Defined";
    default:
      return "unknown";
  }
}

}  // namespace repvolta
