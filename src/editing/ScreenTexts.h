#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "app/ProgramState.h"

namespace repvolta {

/// The names of the two values of the exercise's sets; empty for an unknown set type.
using FieldNames = std::pair<std::string, std::string>;
FieldNames FieldNamesOf(const ExerciseRecord& exercise);

/// "03 sets, 05:20 Exercise, 06:15 Music, Random Music"
std::string SummaryLine(const ExerciseRecord& exercise);

/// The days from `now` to the next growth of a value: " 5", "N/A" when it does not grow, "Due" when
/// the day has passed. The text can be " 0" although an update of the same day does not let the
/// value grow yet (quirk 32). Throws std::overflow_error when there is no such day, or when it is
/// too far off for 16 bits.
std::string DaysText(float frequency, double nextUpdate, double now);

/// The days of both values, such as " 5, N/A"; "Never" for a day that is too far off.
std::string NextUpdateText(const ExerciseRecord& exercise, int set, double now);

/// A date, counted as Clock does, in the short form of the person's locale. Throws
/// std::overflow_error when there is no such date.
std::string DateText(double date);

// What the lists show, row by row.

/// The names of the exercises, trimmed; an exercise without a name has no row here.
std::vector<std::string> ExerciseRows(const ProgramState& state);

/// The summary line of each exercise.
std::vector<std::string> SummaryRows(const ProgramState& state);

/// The music of all exercises in minutes and seconds. Throws std::overflow_error when the time does
/// not fit.
std::string TotalMusicTimeText(const ProgramState& state);

/// The music files of the exercise. Throws std::out_of_range when there are more than slots.
std::vector<std::string> MusicRows(const ExerciseRecord& exercise);

/// What the target makes of the exercise's music: "55 s longer than the target", "2:10 short of the
/// target". Empty without music or target, and with random music, which every update draws anew. It
/// compares the stored times, which the tab shows beside it, so no song is read for it.
std::string TargetText(const ExerciseRecord& exercise);

/// The lists of sets, from left to right.
enum SetColumn : std::size_t {
  kSetList1,
  kSetList2,
  kSetListInc1,
  kSetListInc2,
  kFreqList1,
  kFreqList2,
  kNextUpdateList
};
using SetColumns = std::array<std::vector<std::string>, kNextUpdateList + 1>;

/// A row for each set. Throws std::out_of_range when there are more sets than slots.
SetColumns SetRows(const ExerciseRecord& exercise, double now);

/// "Weight/Reps", as its button says; "unknown" for a number that no button has.
std::string SetTypeName(std::int16_t type);

}  // namespace repvolta
