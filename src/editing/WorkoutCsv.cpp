#include "editing/WorkoutCsv.h"

#include <algorithm>
#include <array>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "app/UpdateDays.h"
#include "base/Days.h"
#include "base/FileNames.h"
#include "base/Numbers.h"
#include "base/SingleByteText.h"
#include "base/Text.h"
#include "editing/NextGrowth.h"
#include "editing/ScreenTexts.h"
#include "update/GrowingField.h"

namespace repvolta {
namespace {

/// Without it spreadsheet programs assume the code page of the computer (quirk 125).
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

/// What spreadsheet programs take for the beginning of a formula, also in its wide form.
constexpr std::array<std::string_view, 11> kFormulaSigns = {"=",  "+",  "-",  "@",  "\t", "\r",
                                                            "\n", "＝", "＋", "－", "＠"};

constexpr std::size_t kColumnsOfWorkout = 1;
constexpr std::size_t kColumnsOfExercise = 7;
constexpr std::size_t kColumnsOfSet = 1;
constexpr std::size_t kColumnsOfValue = 7;
constexpr std::size_t kColumns =
    kColumnsOfWorkout + kColumnsOfExercise + kColumnsOfSet + 2 * kColumnsOfValue + kMusicSlots;

std::string_view WithoutApostrophes(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of('\''), text.size()));
}

bool LooksLikeFormula(std::string_view text) {
  return std::any_of(kFormulaSigns.begin(), kFormulaSigns.end(),
                     [text](std::string_view sign) { return text.starts_with(sign); });
}

std::string Quoted(const std::string& text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"') quoted += c;
    quoted += c;
  }
  return quoted + "\"";
}

/// The cells of one line.
class Cells {
 public:
  Cells() { cells_.reserve(kColumns); }

  void Put(const std::string& cell) { cells_.push_back(cell); }
  void PutNumber(int number) { Put(std::to_string(number)); }
  void PutNumber(float number) { Put(ListNumberText(number)); }

  /// A text that would become a formula gets an apostrophe; one more where it begins with them, so
  /// that removing one always gives the text back (quirk 125).
  void PutText(const std::string& text) {
    std::string cell = AsUtf8(text);
    if (LooksLikeFormula(WithoutApostrophes(cell))) cell.insert(0, 1, '\'');
    const bool isPlain =
        cell.find_first_of("\",\r\n") == std::string::npos && TrimBlanks(cell) == cell;
    Put(isPlain ? cell : Quoted(cell));
  }

  /// All columns; those that were not put are empty.
  std::string Line() {
    cells_.resize(kColumns);
    std::string line = cells_.front();
    for (std::size_t i = 1; i < cells_.size(); ++i) line += "," + cells_[i];
    return line + "\r\n";
  }

 private:
  std::vector<std::string> cells_;
};

/// Empty for a date that no calendar has.
std::string DateOrNothing(double date) {
  try {
    return IsoDate(date);
  } catch (const std::overflow_error&) {
    return {};
  }
}

/// The number of a kind that the program does not know, so that it is not lost.
std::string SetTypeText(const ExerciseRecord& exercise) {
  const bool isKnown = exercise.SetType >= kWeightAndReps && exercise.SetType <= kUserDefined;
  return isKnown ? SetTypeName(exercise.SetType) : std::to_string(exercise.SetType);
}

void PutExercise(Cells& cells, const ProgramState& state, int index) {
  const ExerciseRecord& exercise = state.Workout[index];
  cells.PutNumber(index + 1);
  cells.PutText(exercise.ExerciseName.Trimmed());
  cells.Put(SetTypeText(exercise));
  cells.Put(exercise.Units == kFalse ? "metric" : "imperial");
  cells.PutNumber(exercise.TargetExerciseTime);
  cells.PutNumber(exercise.TotalMusicTime);
  cells.Put(exercise.RandomMusic == kTrue ? "yes" : "no");
}

void PutGrowth(Cells& cells, const std::optional<SetGrowth>& growth) {
  cells.Put(growth ? DateOrNothing(growth->day) : "");
  cells.Put(growth ? ListNumberText(growth->to) : "");
}

void PutValue(Cells& cells, const ProgramState& state, int index, SetValue value, double today) {
  const ExerciseRecord& exercise = state.Workout[index];
  const GrowingField& field = FieldOf(value.field);
  const FieldNames names = FieldNamesOf(exercise);
  cells.PutText(value.field == 1 ? names.first : names.second);
  cells.PutNumber((exercise.*field.value)[value.set]);
  cells.PutNumber((exercise.*field.increment)[value.set]);
  cells.PutNumber((exercise.*field.frequency)[value.set]);
  cells.Put(DateOrNothing((exercise.*field.nextUpdate)[value.set]));
  PutGrowth(cells, NextGrowth(exercise, value, ChosenUpdateDays(state.Options), today));
}

void PutNoSet(Cells& cells) {
  for (std::size_t i = 0; i < kColumnsOfSet + 2 * kColumnsOfValue; ++i) cells.Put("");
}

void PutSongs(Cells& cells, const ExerciseRecord& exercise) {
  const int songs = std::clamp<int>(exercise.NumberOfMusicFiles, 0, kMusicSlots);
  for (int i = 0; i < songs; ++i) cells.PutText(exercise.MusicFile[i].Trimmed());
}

int SetsOf(const ExerciseRecord& exercise) {
  return std::clamp<int>(exercise.NumberOfSets, 0, kSetSlots);
}

/// `set` -1 stands for an exercise without sets.
std::string SetLine(const ProgramState& state, int index, int set, double today) {
  Cells cells;
  cells.PutText(BaseName(state.WorkoutFileName));
  PutExercise(cells, state, index);
  if (set < 0) {
    PutNoSet(cells);
  } else {
    cells.PutNumber(set + 1);
    for (const int field : {1, 2}) PutValue(cells, state, index, {set, field}, today);
  }
  PutSongs(cells, state.Workout[index]);
  return cells.Line();
}

}  // namespace

std::string CsvHeader() {
  Cells cells;
  for (const char* name : {"workout", "exercise", "name", "set type", "units", "target seconds",
                           "music seconds", "random music", "set"}) {
    cells.Put(name);
  }
  for (const char* number : {" 1", " 2"}) {
    for (const char* name :
         {"field", "value", "increment", "frequency", "counted from", "grows next", "grows to"}) {
      cells.Put(std::string(name) + number);
    }
  }
  for (std::size_t i = 1; i <= kMusicSlots; ++i) cells.Put("song " + std::to_string(i));
  return std::string(kUtf8Mark) + cells.Line();
}

std::string CsvLines(const ProgramState& state, double today) {
  std::string lines;
  for (int i = 0; i < state.NumberOfExercises; ++i) {
    const int sets = SetsOf(state.Workout[i]);
    if (sets == 0) lines += SetLine(state, i, -1, today);
    for (int set = 0; set < sets; ++set) lines += SetLine(state, i, set, today);
  }
  if (state.NumberOfExercises > 0) return lines;
  Cells cells;
  cells.PutText(BaseName(state.WorkoutFileName));
  return cells.Line();
}

int CsvLineCount(const ProgramState& state) {
  int lines = 0;
  for (int i = 0; i < state.NumberOfExercises; ++i) lines += std::max(1, SetsOf(state.Workout[i]));
  return std::max(1, lines);
}

}  // namespace repvolta
