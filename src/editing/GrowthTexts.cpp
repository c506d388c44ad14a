#include "editing/GrowthTexts.h"

#include <cmath>

#include "base/Days.h"
#include "base/Text.h"
#include "editing/ScreenTexts.h"

namespace repvolta {
namespace {

constexpr int kWeek = 7;

/// "3rd"
std::string Ordinal(int number) {
  constexpr int kTen = 10;
  const bool isTeen = number / kTen % kTen == 1;
  const int last = isTeen ? 0 : number % kTen;
  const char* const end = last == 1 ? "st" : last == 2 ? "nd" : last == 3 ? "rd" : "th";
  return std::to_string(number) + end;
}

/// "every day", "every other Monday", "every 3rd day"
std::string Every(int count, const std::string& what) {
  if (count == 1) return "every " + what;
  return "every " + (count == 2 ? "other" : Ordinal(count)) + " " + what;
}

/// The number of days between all growths; 0 when they differ.
int EqualDays(const std::vector<SetGrowth>& rhythm) {
  const double days = rhythm[1].day - rhythm[0].day;
  for (std::size_t i = 2; i < rhythm.size(); ++i) {
    if (rhythm[i].day - rhythm[i - 1].day != days) return 0;
  }
  return static_cast<int>(days);
}

/// The days of the week on which the value grows each week after its first growth; none when there
/// are no such days.
UpdateDays WeeklyDays(const std::vector<SetGrowth>& rhythm) {
  UpdateDays weekdays;
  for (std::size_t i = 1; i < rhythm.size(); ++i) {
    weekdays.set(static_cast<std::size_t>(WeekdayOf(rhythm[i].day)));
  }
  const auto span = static_cast<int>(rhythm.back().day - rhythm.front().day);
  std::size_t days = 0;
  for (int day = 1; day <= span; ++day) {
    if (weekdays[static_cast<std::size_t>(WeekdayOf(rhythm.front().day + day))]) ++days;
  }
  return days + 1 == rhythm.size() ? weekdays : UpdateDays();
}

std::vector<std::string> WeekdayNames(const UpdateDays& weekdays, const std::string& end) {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < weekdays.size(); ++i) {
    if (weekdays[i]) names.push_back(WeekdayName(static_cast<int>(i)) + end);
  }
  return names;
}

std::string NextDates(const std::vector<SetGrowth>& rhythm) {
  std::string text = "on " + EnglishDate(rhythm[1].day);
  if (rhythm.size() > 2) text += ", " + EnglishDate(rhythm[2].day) + " and so on";
  return text;
}

}  // namespace

ValueName ValueNameOf(const ExerciseRecord& exercise, int field) {
  const FieldNames names = FieldNamesOf(exercise);
  const std::string name(TrimBlanks(field == 1 ? names.first : names.second));
  if (name.empty() || names.first == names.second) {
    return {field == 1 ? "The first value" : "The second value", false};
  }
  return {name, name == "Reps"};
}

ValueName NameWithSets(const ValueName& name, const std::vector<int>& sets) {
  std::vector<std::string> numbers;
  numbers.reserve(sets.size());
  for (const int set : sets) numbers.push_back(std::to_string(set + 1));
  return {name.text + (numbers.size() == 1 ? " of set " : " of sets ") + Listed(numbers),
          name.isPlural};
}

std::string UpdatesText(const UpdateDays& updates) {
  if (updates == kDaily) return "daily updates";
  return "updates on " + Listed(WeekdayNames(updates, "s"));
}

std::string RhythmText(const std::vector<SetGrowth>& rhythm, const UpdateDays& updates) {
  if (rhythm.size() < 2) return {};
  const int days = EqualDays(rhythm);
  if (days > 0 && updates == kDaily) return Every(days, "day");
  if (days > 0 && days % kWeek == 0) {
    return Every(days / kWeek, WeekdayName(WeekdayOf(rhythm[0].day)));
  }
  const UpdateDays weekdays = rhythm.size() > 2 ? WeeklyDays(rhythm) : UpdateDays();
  return weekdays.any() ? "every " + Listed(WeekdayNames(weekdays, "")) : NextDates(rhythm);
}

std::string Listed(const std::vector<std::string>& words) {
  std::string text;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (i > 0) text += i + 1 == words.size() ? " and " : ", ";
    text += words[i];
  }
  return text;
}

}  // namespace repvolta
