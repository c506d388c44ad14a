#include "editing/Answers.h"

#include <cmath>
#include <limits>
#include <stdexcept>

#include "base/FileNames.h"
#include "base/Numbers.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"

namespace repvolta {
namespace {

constexpr int kSecondsPerMinute = 60;

bool IsBlank(std::string_view answer) { return TrimBlanks(answer).empty(); }

bool IsFrequency(SetColumn column) { return column == kFreqList1 || column == kFreqList2; }

}  // namespace

std::optional<float> SetNumberOf(std::string_view answer, SetColumn column, const Clock& clock) {
  if (IsBlank(answer)) return std::nullopt;
  const double number = LeadingNumber(answer);
  if (number < 0) return std::nullopt;
  const float kept = CheckedSingle(number);
  if (IsFrequency(column)) {
    // Throws for days that could not be shown.
    DaysText(kept, clock.Today() + static_cast<double>(kept), clock.Now());
  }
  return kept;
}

float NewSetValueOf(std::string_view answer) { return CheckedSingle(LeadingNumber(answer)); }

std::optional<std::int16_t> DefaultTimeOf(std::string_view answer) {
  if (IsBlank(answer)) return std::nullopt;
  return RoundToInt16(LeadingNumber(answer));
}

std::optional<std::int16_t> TargetTimeOf(std::string_view answer) {
  constexpr std::int16_t kLongest = std::numeric_limits<std::int16_t>::max();
  const double seconds = LeadingNumber(answer) * kSecondsPerMinute;
  if (!(seconds > 0)) return std::nullopt;
  if (std::nearbyint(seconds) > kLongest) {
    throw std::overflow_error("This time is too long. The longest target time is " +
                              FormatTime(kLongest) + " (minutes and seconds).");
  }
  return RoundToInt16(seconds);
}

std::optional<std::string> ExerciseNameOf(std::string_view answer) {
  // A name of blanks would end the list of exercises at the next load.
  if (IsBlank(answer)) return std::nullopt;
  return decltype(ExerciseRecord::ExerciseName)(answer).Text();
}

std::optional<std::string> WorkoutNameOf(std::string_view answer) {
  std::string name(TrimBlanks(answer));
  if (name.empty()) return std::nullopt;
  if (!IsFileName(name) || !IsFileName(name + std::string(kWorkoutExtension))) {
    throw std::invalid_argument(
        "A workout cannot have this name, because a file cannot have it: it contains a character "
        "such as \"/\", or it is too long.");
  }
  return name;
}

}  // namespace repvolta
