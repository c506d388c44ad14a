#include "editing/GrowthSentence.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "base/Days.h"
#include "base/Numbers.h"
#include "editing/GrowthTexts.h"
#include "update/GrowingField.h"

namespace repvolta {
namespace {

constexpr const char* kReset = "\"Manually Reset Inc Date\"";

/// A value of a set, with what is asked of it.
struct Asked {
  const ExerciseRecord& exercise;
  SetValue value;
  const UpdateDays& updates;
  double today;
  ValueName name;

  float Frequency() const { return (exercise.*FieldOf(value.field).frequency)[value.set]; }
  float Increment() const { return (exercise.*FieldOf(value.field).increment)[value.set]; }
  float Value() const { return (exercise.*FieldOf(value.field).value)[value.set]; }
  double CountedFrom() const { return (exercise.*FieldOf(value.field).nextUpdate)[value.set]; }
  bool HasFrequency() const { return Frequency() > 0; }
  std::vector<SetGrowth> Rhythm(const UpdateDays& days) const {
    return RhythmOf(exercise, value, days, today);
  }
};

std::string DateOrNone(double date) {
  try {
    return EnglishDate(date);
  } catch (const std::overflow_error&) {
    return "an impossible date";
  }
}

/// Why a value whose day has come stays as it is.
std::string Stays(const Asked& asked, const SetGrowth& growth) {
  const ValueName& name = asked.name;
  const std::string text =
      name.text + name.Verb(" stays ", " stay ") + ListNumberText(growth.from) + ": ";
  const std::string increment = ListNumberText(asked.Increment());
  if (asked.Increment() == 0) return text + "the increment is 0.";
  if (growth.failure) return text + "with " + increment + " more it would be too large.";
  return text + "an increment of " + increment + " does not change so large a number.";
}

std::string NeverGrows(const Asked& asked) {
  const ValueName& name = asked.name;
  const std::string text = name.text + name.Verb(" does", " do") + " not grow within ten years";
  if (asked.CountedFrom() <= asked.today) return text + ".";
  return text + ": the days are counted from " + DateOrNone(asked.CountedFrom()) + "; " + kReset +
         " counts them from today.";
}

std::string Verb(const ValueName& name, const SetGrowth& growth) {
  return growth.to < growth.from ? name.Verb("falls", "fall") : name.Verb("grows", "grow");
}

/// "Weight first grows on Fri 4 Dec 2026 by 2.5 to 52.5, then every 7th day"
std::string DailyPart(const Asked& asked, const std::vector<SetGrowth>& rhythm) {
  const ValueName& name = asked.name;
  const SetGrowth& first = rhythm.front();
  std::string text = name.text + " ";
  if (first.day == asked.today) {
    text += Verb(name, first) + " with the next update";
  } else {
    text += (asked.CountedFrom() > asked.today ? "first " : "next ") + Verb(name, first) + " on " +
            EnglishDate(first.day);
  }
  text += " by " + ListNumberText(std::abs(asked.Increment())) + " to " + ListNumberText(first.to);
  const std::string every = RhythmText(rhythm, kDaily);
  return every.empty() ? text : text + ", then " + every;
}

/// "; updates on Mondays make it Mon 7 Dec 2026, then every Monday"
std::string UpdatesPart(const Asked& asked, double dailyStart) {
  if (asked.updates == kDaily) return {};
  const std::vector<SetGrowth> rhythm = asked.Rhythm(asked.updates);
  if (rhythm.empty()) return {};
  std::string text = "; " + UpdatesText(asked.updates) + " make it ";
  const std::string every = RhythmText(rhythm, asked.updates);
  if (rhythm.front().day == dailyStart && !every.empty()) return text + every;
  text += EnglishDate(rhythm.front().day);
  return every.empty() ? text : text + ", then " + every;
}

/// "; it is below 0 from Mon 7 Dec 2026 on"
std::string TurnPart(const Asked& asked) {
  const auto turn = TurnOf(asked.exercise, asked.value, asked.updates, asked.today);
  if (!turn) return {};
  const std::string from = " from " + EnglishDate(turn->day) + " on";
  const ValueName& name = asked.name;
  if (turn->to == turn->from) {
    return name.Verb("; it stays ", "; they stay ") + ListNumberText(turn->to) + from;
  }
  const std::string is = name.Verb("; it is ", "; they are ");
  return is + (turn->to == 0 ? "0 on " + EnglishDate(turn->day) : "below 0" + from);
}

std::string ValueSentence(const Asked& asked) {
  if (!asked.HasFrequency()) return {};
  const std::vector<SetGrowth> rhythm = asked.Rhythm(kDaily);
  if (rhythm.empty()) return NeverGrows(asked);
  const SetGrowth& first = rhythm.front();
  if (first.to == first.from) return Stays(asked, first);
  return DailyPart(asked, rhythm) + UpdatesPart(asked, first.day) + TurnPart(asked) + ".";
}

bool HasAnyFrequency(const ExerciseRecord& exercise) {
  const auto grows = [](float frequency) { return frequency > 0; };
  const auto sets = std::clamp<int>(exercise.NumberOfSets, 0, kSetSlots);
  return std::any_of(exercise.SetFrequency1.begin(), exercise.SetFrequency1.begin() + sets,
                     grows) ||
         std::any_of(exercise.SetFrequency2.begin(), exercise.SetFrequency2.begin() + sets, grows);
}

/// "Weight: "every 7 days" with updates on Mondays means every other Monday; 6 would mean every
/// Monday."
std::string RhythmAdvice(const Asked& asked, const std::vector<SetGrowth>& rhythm) {
  const std::string every = RhythmText(rhythm, asked.updates);
  if (every.empty()) return {};
  std::string text = asked.name.text + ": \"every " + ListNumberText(asked.Frequency()) +
                     (asked.Frequency() == 1 ? " day" : " days") + "\" with " +
                     UpdatesText(asked.updates) + " means " + every;
  const auto better = BetterFrequency(asked.exercise, asked.value, asked.updates, asked.today);
  if (better) {
    text += "; " + ListNumberText(better->days) + " would mean " +
            RhythmText(better->rhythm, asked.updates);
  }
  return text + ".";
}

/// " First on Mon 22 Jun 2026; "Manually Reset Inc Date" would make it Mon 15 Jun 2026."
std::string StartAdvice(const Asked& asked, const SetGrowth& first) {
  if (!(asked.CountedFrom() > asked.today)) return {};
  ExerciseRecord reset = asked.exercise;
  (reset.*FieldOf(asked.value.field).nextUpdate)[asked.value.set] = asked.today;
  const auto sooner = RhythmOf(reset, asked.value, asked.updates, asked.today);
  std::string text = " First on " + EnglishDate(first.day);
  if (!sooner.empty() && sooner.front().day < first.day) {
    text += std::string("; ") + kReset + " would make it " + EnglishDate(sooner.front().day);
  }
  return text + ".";
}

}  // namespace

std::string GrowthSentence(const ExerciseRecord& exercise, int set, const UpdateDays& updates,
                           double today) {
  if (set < 0) {
    return HasAnyFrequency(exercise) ? "Select a set to read here when it grows." : "";
  }
  std::string text;
  for (const int field : {1, 2}) {
    const std::string sentence =
        ValueSentence({exercise, {set, field}, updates, today, ValueNameOf(exercise, field)});
    if (!text.empty() && !sentence.empty()) text += " ";
    text += sentence;
  }
  return text;
}

std::string GrowthAdvice(const ExerciseRecord& exercise, SetValue value, const UpdateDays& updates,
                         double today, const ValueName& name) {
  const Asked asked{exercise, value, updates, today, name};
  if (!asked.HasFrequency()) return {};
  const std::vector<SetGrowth> rhythm = asked.Rhythm(updates);
  if (rhythm.empty()) return NeverGrows(asked);
  if (rhythm.front().to == rhythm.front().from) return Stays(asked, rhythm.front());
  return RhythmAdvice(asked, rhythm) + StartAdvice(asked, rhythm.front());
}

}  // namespace repvolta
