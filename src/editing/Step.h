#pragma once

#include <string>

#include "editing/MainScreen.h"

namespace repvolta {

/// A place of the window where a step can be seen.
struct StepPlace {
  enum class List { kNone, kSets, kMusic };

  std::string workout;  // WorkoutFileName; "" for none
  WindowTab tab = WindowTab::kWorkout;
  int exercise = 0;
  List list = List::kNone;
  int row = -1;  // of the list

  bool operator==(const StepPlace&) const = default;
};

/// What a step is called, as a menu line goes on after "Undo ", and where it can be seen when it is
/// undone and when it is done again.
struct StepDescription {
  std::string name;  // "Remove Exercise 'Bench Press'"
  StepPlace undone;
  StepPlace done;
};

/// What was undone or done again.
struct StepDone {
  StepPlace place;
  std::string unkept;  // why no version was kept, or ""
};

}  // namespace repvolta
