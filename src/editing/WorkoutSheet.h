#pragma once

#include <string>
#include <vector>

#include "app/ProgramState.h"

namespace repvolta {

// What the printed sheet of a workout says, as UTF-8; ui/SheetPages draws it.

/// One set, which gets a box to tick. An exercise without sets has a single one without texts.
struct SheetSet {
  std::string number;
  std::string first;  // the values as the screen shows them
  std::string second;
  std::vector<std::string> growth;  // "Weight: Mon 7 Dec 2026 to 52.5"
};

struct SheetExercise {
  std::string name;        // "2. Bench Press"
  std::string music;       // "05:20 exercise, 06:15 music, 3 songs"
  std::string firstName;   // "Weight (kg)"
  std::string secondName;  // "Reps"
  std::vector<SheetSet> sets;
};

struct WorkoutSheet {
  std::string name;
  std::string date;  // "Sat 21 Nov 2026"
  std::vector<SheetExercise> exercises;
};

/// The workout in memory on `today`, a date as Clock gives it. The growths are those with updates
/// on the chosen update days.
WorkoutSheet SheetOf(const ProgramState& state, double today);

}  // namespace repvolta
