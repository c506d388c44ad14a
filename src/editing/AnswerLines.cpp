#include "editing/AnswerLines.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "base/FileNames.h"
#include "base/Numbers.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "editing/Answers.h"

namespace repvolta {
namespace {

constexpr const char* kNothingChanges = "Nothing changes.";

/// Empty names: the number has no unit.
struct Unit {
  std::string_view one;
  std::string_view many;
};

constexpr Unit kNoUnit = {"", ""};
constexpr Unit kDays = {"day", "days"};
constexpr Unit kMinutes = {"minute", "minutes"};

/// How a column shows its number.
struct ColumnOfSet {
  const char* meaning;  // before the name of the field
  int field;
  SetSingles ExerciseRecord::* numbers;
};

ColumnOfSet Column(SetColumn column) {
  static constexpr std::array<ColumnOfSet, kNextUpdateList> kColumns = {{
      {"", 1, &ExerciseRecord::SetValue1},
      {"", 2, &ExerciseRecord::SetValue2},
      {"increment of ", 1, &ExerciseRecord::SetIncrement1},
      {"increment of ", 2, &ExerciseRecord::SetIncrement2},
      {"frequency of ", 1, &ExerciseRecord::SetFrequency1},
      {"frequency of ", 2, &ExerciseRecord::SetFrequency2},
  }};
  return kColumns.at(column);
}

Unit UnitOfField(const ExerciseRecord& exercise, int field) {
  const bool isMetric = exercise.Units == kFalse;
  const bool isFirst = field == 1;
  switch (exercise.SetType) {
    case kWeightAndReps:
      if (!isFirst) return {"repetition", "repetitions"};
      return isMetric ? Unit{"kilogram", "kilograms"} : Unit{"pound", "pounds"};
    case kLevelAndTime:
      return isFirst ? kNoUnit : kMinutes;
    case kDistanceAndSpeed:
      if (isFirst) return isMetric ? Unit{"kilometer", "kilometers"} : Unit{"mile", "miles"};
      return isMetric ? Unit{"kilometer per hour", "kilometers per hour"}
                      : Unit{"mile per hour", "miles per hour"};
    default:
      return kNoUnit;
  }
}

/// Distance and speed are heard in the other units (quirk 2).
std::string HeardUnits(const ExerciseRecord& exercise) {
  if (exercise.SetType != kDistanceAndSpeed) return "";
  return std::string(" The voice says ") + (exercise.Units == kTrue ? "kilometers" : "miles") + ".";
}

/// "50 kilograms", "1 day"
std::string Quantity(const std::string& number, const Unit& unit) {
  if (unit.many.empty()) return number;
  return number + " " + std::string(number == "1" ? unit.one : unit.many);
}

std::string NameOfField(const ExerciseRecord& exercise, int field) {
  const FieldNames names = FieldNamesOf(exercise);
  return std::string(TrimBlanks(field == 1 ? names.first : names.second));
}

/// Says why the text behind the number does not count; "" when there is none.
std::string RestHint(std::string_view answer) {
  const std::size_t length = ReadLeadingNumber(answer).length;
  const std::string_view rest = TrimBlanks(answer.substr(length));
  if (length == 0) return rest.empty() ? "" : " This is not a number.";
  if (rest.empty()) return "";
  return rest.starts_with(',') ? " The decimal point is a point."
                               : " Only the number at the start counts.";
}

/// `nothing` says why a number is not taken: "less than 0".
std::string NothingOf(std::string_view answer, const std::string& nothing) {
  if (TrimBlanks(answer).empty()) return kNothingChanges;
  const bool isNumber = ReadLeadingNumber(answer).length > 0;
  return "Nothing will be kept: " + (isNumber ? nothing : "not a number") + ".";
}

/// The line for a number; `kept` gives its text, or nothing, or throws why it is refused.
std::string NumberLine(std::string_view answer, const std::string& nothing,
                       const std::function<std::optional<std::string>()>& kept) {
  try {
    const std::optional<std::string> text = kept();
    if (!text) return NothingOf(answer, nothing);
    return "Will be kept: " + *text + "." + RestHint(answer);
  } catch (const std::overflow_error& error) {
    return std::string("Refused: ") + error.what() +
           (std::string_view(error.what()).ends_with('.') ? "" : ".");
  }
}

std::string TimeText(std::int16_t seconds) {
  return FormatTime(seconds) + " (minutes and seconds)";
}

std::string Quoted(const std::string& name) { return "\"" + name + "\""; }

bool IsSameFile(const std::string& file, const std::string& name) {
  return FoldCase(file) == FoldCase(name + std::string(kWorkoutExtension));
}

bool IsListed(const ProgramState& state, const std::string& name) {
  return std::ranges::any_of(state.WorkoutNames,
                             [&](const std::string& file) { return IsSameFile(file, name); });
}

/// `takenLine` says what a name means that a workout has already; "" when it is as good as another.
std::string WorkoutLine(std::string_view answer,
                        const std::function<std::string(const std::string& name)>& takenLine) {
  try {
    const std::optional<std::string> name = WorkoutNameOf(answer);
    if (!name) return kNothingChanges;
    const std::string line = takenLine(*name);
    return line.empty() ? "Will be kept: " + Quoted(*name) + "." : line;
  } catch (const std::invalid_argument& error) {
    return std::string("Refused: ") + error.what();
  }
}

std::string WorkoutsText(const ProgramState& state) {
  if (state.NumberOfWorkouts == 1) return "There is 1 workout now.";
  return "There are " + std::to_string(state.NumberOfWorkouts) + " workouts now.";
}

std::string TakenText(const std::string& name) {
  return "Refused: there is a workout " + Quoted(name) + " already.";
}

}  // namespace

AnswerHelp SetNumberHelp(const ExerciseRecord& exercise, int set, SetColumn column,
                         const Clock& clock) {
  const auto [meaning, field, numbers] = Column(column);
  const bool isFrequency = column == kFreqList1 || column == kFreqList2;
  const Unit unit = isFrequency ? kDays : UnitOfField(exercise, field);
  const std::string now = Quantity(ListNumberText((exercise.*numbers)[set]), unit);
  return {.now = exercise.ExerciseName.Trimmed() + ", set " + std::to_string(set + 1) + ", " +
                 meaning + NameOfField(exercise, field) + ": " + now + " now." +
                 (isFrequency ? "" : HeardUnits(exercise)),
          .kept = [column, unit, &clock](std::string_view answer) {
            return NumberLine(answer, "less than 0", [&]() -> std::optional<std::string> {
              const std::optional<float> number = SetNumberOf(answer, column, clock);
              if (!number) return std::nullopt;
              return Quantity(ListNumberText(*number), unit);
            });
          }};
}

AnswerHelp NewSetHelp(const ExerciseRecord& exercise, int field) {
  const Unit unit = UnitOfField(exercise, field);
  const std::string inUnit = unit.many.empty() ? "" : " in " + std::string(unit.many);
  return {.now = exercise.ExerciseName.Trimmed() + ", new set " +
                 std::to_string(exercise.NumberOfSets + 1) + ": " + NameOfField(exercise, field) +
                 inUnit + "." + HeardUnits(exercise),
          .kept = [unit](std::string_view answer) {
            const std::string line = NumberLine(answer, "", [&]() -> std::optional<std::string> {
              return Quantity(ListNumberText(NewSetValueOf(answer)), unit);
            });
            return TrimBlanks(answer).empty() ? line + " Cancel keeps it, too." : line;
          }};
}

AnswerHelp DefaultTimeHelp(const SettingsRecord& settings) {
  return {.now = "The target time of new exercises: " +
                 Quantity(std::to_string(settings.DefaultExerciseTime), kMinutes) + " now.",
          .kept = [](std::string_view answer) {
            return NumberLine(answer, "", [&]() -> std::optional<std::string> {
              const std::optional<std::int16_t> minutes = DefaultTimeOf(answer);
              if (!minutes) return std::nullopt;
              return Quantity(std::to_string(*minutes), kMinutes);
            });
          }};
}

AnswerHelp TargetTimeHelp(const ExerciseRecord& exercise) {
  return {.now = exercise.ExerciseName.Trimmed() +
                 ", target time: " + TimeText(exercise.TargetExerciseTime) + " now.",
          .kept = [](std::string_view answer) {
            return NumberLine(answer, "not more than 0", [&]() -> std::optional<std::string> {
              const std::optional<std::int16_t> seconds = TargetTimeOf(answer);
              if (!seconds) return std::nullopt;
              return TimeText(*seconds);
            });
          }};
}

AnswerHelp ExerciseNameHelp(const ExerciseRecord& exercise) {
  return {.now = "The exercise is called " + Quoted(exercise.ExerciseName.Trimmed()) + " now.",
          .kept = [](std::string_view answer) -> std::string {
            const std::optional<std::string> name = ExerciseNameOf(answer);
            if (!name) return kNothingChanges;
            const bool isCut = name->size() < TrimTrailingBlanks(answer).size();
            return "Will be kept: " + Quoted(std::string(TrimBlanks(*name))) + "." +
                   (isCut ? " The rest does not fit." : "");
          }};
}

AnswerHelp NewWorkoutHelp(const ProgramState& state) {
  return {.now = WorkoutsText(state), .kept = [&state](std::string_view answer) {
            return WorkoutLine(answer, [&](const std::string& name) -> std::string {
              if (!IsListed(state, name)) return "";
              return "There is a workout " + Quoted(name) + ": an empty one will take its place.";
            });
          }};
}

AnswerHelp CopiedWorkoutHelp(const ProgramState& state) {
  return {.now = WorkoutsText(state), .kept = [&state](std::string_view answer) {
            return WorkoutLine(answer, [&](const std::string& name) {
              return IsListed(state, name) ? TakenText(name) : "";
            });
          }};
}

AnswerHelp RenamedWorkoutHelp(const ProgramState& state) {
  return {.now = "The workout is called " + Quoted(BaseName(state.WorkoutFileName)) + " now.",
          .kept = [&state](std::string_view answer) {
            return WorkoutLine(answer, [&](const std::string& name) -> std::string {
              if (name == BaseName(state.WorkoutFileName)) return kNothingChanges;
              if (IsSameFile(state.WorkoutFileName, name)) return "";
              return IsListed(state, name) ? TakenText(name) : "";
            });
          }};
}

}  // namespace repvolta
