#pragma once

#include <string>

#include "editing/GrowthTexts.h"
#include "update/GrowthAhead.h"

namespace repvolta {

// When a value grows, said for people; the same in every locale. `today` is a date as Clock gives
// it.

/// The line below the lists of sets: "Weight first grows on Fri 4 Dec 2026 by 2.5 to 52.5, then
/// every 7th day; updates on Mondays make it Mon 7 Dec 2026, then every Monday." Empty when no
/// value of the set has a frequency. `set` -1 stands for no selected set.
std::string GrowthSentence(const ExerciseRecord& exercise, int set, const UpdateDays& updates,
                           double today);

/// What the frequency of a value comes to with these updates, which other would do better, and when
/// the growth begins; `name` names the value. Empty for a value without a frequency.
std::string GrowthAdvice(const ExerciseRecord& exercise, SetValue value, const UpdateDays& updates,
                         double today, const ValueName& name);

}  // namespace repvolta
