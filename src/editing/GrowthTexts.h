#pragma once

#include <string>
#include <vector>

#include "update/GrowthAhead.h"

namespace repvolta {

// The words for growth ahead; the same in every locale.

/// A value as sentences call it: by its field's name, or "The first value" where that is blank or
/// both have the same name.
struct ValueName {
  std::string text;
  bool isPlural;

  /// The form of a verb that fits: `one` for "Weight", `several` for "Reps".
  std::string Verb(const char* one, const char* several) const { return isPlural ? several : one; }
};
ValueName ValueNameOf(const ExerciseRecord& exercise, int field);

/// "Weight of set 2", "Reps of sets 1 and 3"
ValueName NameWithSets(const ValueName& name, const std::vector<int>& sets);

/// "daily updates", "updates on Mondays and Thursdays"
std::string UpdatesText(const UpdateDays& updates);

/// "every 8th day", "every other Monday", "every Monday and Thursday"; where there is no such
/// order, "on Mon 7 Dec 2026, Fri 18 Dec 2026 and so on" with the growths after the first. Empty
/// for less than two growths.
std::string RhythmText(const std::vector<SetGrowth>& rhythm, const UpdateDays& updates);

/// "a", "a and b", "a, b and c"
std::string Listed(const std::vector<std::string>& words);

}  // namespace repvolta
