#pragma once

#include <string>
#include <vector>

#include "update/GrowthAhead.h"

namespace repvolta {

/// A growth as a row of texts.
struct GrowthRow {
  std::string day;
  std::string set;  // from 1
  std::string field;
  std::string from;
  std::string to;

  bool operator==(const GrowthRow&) const = default;
};

/// The steps of one value that changes: what it is at the first moment, and after each growth.
struct GrowthCurve {
  struct Step {
    double day;
    float value;

    bool operator==(const Step&) const = default;
  };

  std::string name;  // "Set 1: Weight"
  int set;           // from 0
  int field;
  std::vector<Step> steps;

  bool operator==(const GrowthCurve&) const = default;
};

/// What the window "Growth Ahead" shows of an exercise.
struct GrowthAheadView {
  std::string exercise;
  std::vector<std::string> advice;
  std::vector<GrowthRow> rows;      // what changes, day by day
  std::vector<GrowthCurve> curves;  // set by set
  std::string left;                 // the name of the first field, if one of its values changes
  std::string right;                // of the second
  DaySpan span;

  /// The curves in words: "Set 1: Weight from 50 to 62.5 in 5 steps, the last on Mon 3 Aug 2026."
  std::string Description() const;
};

/// A value that stays although its day comes is in the advice only.
GrowthAheadView GrowthAheadOf(const ExerciseRecord& exercise, const UpdateDays& updates,
                              const DaySpan& span);

}  // namespace repvolta
