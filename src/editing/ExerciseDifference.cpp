#include "editing/ExerciseDifference.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

#include "base/Days.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "editing/MusicDifference.h"
#include "editing/ScreenTexts.h"

namespace repvolta {
namespace {

std::string Instead(const std::string& then, const std::string& now) {
  return then + " instead of " + now;
}

/// "1 set", "3 sets"
std::string Count(int number, const std::string& one) {
  return std::to_string(number) + " " + one + (number == 1 ? "" : "s");
}

std::string DayOf(double date) {
  try {
    return EnglishDate(date);
  } catch (const std::overflow_error&) {
    return "an impossible day";
  }
}

/// "first value" where the field has no name of its own.
std::string NameOfField(const ExerciseRecord& exercise, int field) {
  const FieldNames names = FieldNamesOf(exercise);
  std::string name(TrimBlanks(field == 1 ? names.first : names.second));
  if (!name.empty() && names.first != names.second) return name;
  return field == 1 ? "first value" : "second value";
}

std::string FrequencyText(float days) {
  if (days == 0) return "never";
  return "every " + ListNumberText(days) + (days == 1 ? " day" : " days");
}

/// Compares two records. What is told of a field is taken over, so that at the end `rest_` and
/// `now_` differ in what no line has told.
class Comparison {
 public:
  Comparison(const std::string& name, const ExerciseRecord& then, const ExerciseRecord& now)
      : name_(name), then_(then), now_(now), rest_(then) {}

  std::vector<std::string> Lines() {
    CompareExercise();
    CompareMusic();
    CompareSets();
    if (rest_ != now_) Add("", "what the window does not show");
    return std::move(lines_);
  }

 private:
  void Add(const std::string& part, const std::string& text) {
    lines_.push_back(ShownOnOneLine(name_ + (part.empty() ? "" : ", " + part) + ": " + text));
  }

  /// Texts that are equal on the screen are not told.
  template <class Field, class TextOf>
  void Tell(Field ExerciseRecord::* field, const std::string& what, TextOf textOf) {
    const std::string then = textOf(then_.*field);
    const std::string now = textOf(now_.*field);
    if (then == now) return;
    Add("", what + Instead(then, now));
    rest_.*field = now_.*field;
  }

  void CompareExercise() {
    Tell(&ExerciseRecord::ExerciseName, "name ", [](const auto& name) { return name.Trimmed(); });
    Tell(&ExerciseRecord::SetType, "", SetTypeName);
    const auto quoted = [](const auto& text) { return "\"" + text.Text() + "\""; };
    Tell(&ExerciseRecord::UserField1Name, "name of the first number ", quoted);
    Tell(&ExerciseRecord::UserField2Name, "name of the second number ", quoted);
    Tell(&ExerciseRecord::Units, "",
         [](Flag units) { return std::string(units == kTrue ? "Imperial" : "Metric"); });
    Tell(&ExerciseRecord::TargetExerciseTime, "target time ", FormatTime);
  }

  void CompareMusic() {
    Tell(&ExerciseRecord::RandomMusic, "",
         [](Flag random) { return std::string(random == kTrue ? "random music" : "own music"); });
    for (const std::string& line : MusicDifference(then_, now_, rest_)) Add("music", line);
  }

  void CompareSets() {
    const int then = ClampedSets(then_);
    const int now = ClampedSets(now_);
    Tell(&ExerciseRecord::NumberOfSets, "", [](std::int16_t sets) { return Count(sets, "set"); });
    for (int set = 0; set < std::max(then, now); ++set) {
      const std::string part = "set " + std::to_string(set + 1);
      if (set >= now) {
        Add(part, "only then, " + ValuesOf(then_, set));
        TakeOver(set);
      } else if (set >= then) {
        Add(part, "only now, " + ValuesOf(now_, set));
        TakeOver(set);
      } else {
        CompareSet(part, set);
      }
    }
  }

  static int ClampedSets(const ExerciseRecord& exercise) {
    return std::clamp<int>(exercise.NumberOfSets, 0, kSetSlots);
  }

  /// "Weight 50, Reps 10"
  static std::string ValuesOf(const ExerciseRecord& exercise, int set) {
    return NameOfField(exercise, 1) + " " + ListNumberText(exercise.SetValue1[set]) + ", " +
           NameOfField(exercise, 2) + " " + ListNumberText(exercise.SetValue2[set]);
  }

  void TakeOver(int set) {
    for (const auto numbers : kNumbers) (rest_.*numbers)[set] = (now_.*numbers)[set];
    for (const auto dates : kDates) (rest_.*dates)[set] = (now_.*dates)[set];
  }

  void CompareSet(const std::string& part, int set) {
    parts_.clear();
    for (std::size_t field = 0; field < kDates.size(); ++field) {
      const std::string name = NameOfField(then_, static_cast<int>(field) + 1);
      TellNumber(kNumbers.at(field), set, name + " ", ListNumberText);
      TellNumber(kNumbers.at(field + 2), set, "increment of " + name + " ", ListNumberText);
      TellNumber(kNumbers.at(field + 4), set, name + " grows ", FrequencyText);
      TellNumber(kDates.at(field), set, "days of " + name + " counted from ", DayOf);
    }
    if (parts_.empty()) return;
    std::string text = parts_.front();
    for (std::size_t i = 1; i < parts_.size(); ++i) text += ", " + parts_[i];
    Add(part, text);
  }

  template <class Numbers, class TextOf>
  void TellNumber(Numbers ExerciseRecord::* numbers, int set, const std::string& what,
                  TextOf textOf) {
    const std::string then = textOf((then_.*numbers)[set]);
    const std::string now = textOf((now_.*numbers)[set]);
    if (then == now) return;
    parts_.push_back(what + Instead(then, now));
    (rest_.*numbers)[set] = (now_.*numbers)[set];
  }

  static constexpr std::array kNumbers = {
      &ExerciseRecord::SetValue1,     &ExerciseRecord::SetValue2,
      &ExerciseRecord::SetIncrement1, &ExerciseRecord::SetIncrement2,
      &ExerciseRecord::SetFrequency1, &ExerciseRecord::SetFrequency2,
  };
  static constexpr std::array kDates = {&ExerciseRecord::NextUpdate1, &ExerciseRecord::NextUpdate2};

  const std::string& name_;
  const ExerciseRecord& then_;
  const ExerciseRecord& now_;
  ExerciseRecord rest_;
  std::vector<std::string> lines_;
  std::vector<std::string> parts_;  // of the line of a set
};

}  // namespace

std::vector<std::string> ExerciseDifference(const std::string& name, const ExerciseRecord& then,
                                            const ExerciseRecord& now) {
  return Comparison(name, then, now).Lines();
}

}  // namespace repvolta
