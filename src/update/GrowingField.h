#pragma once

#include "app/Records.h"

namespace repvolta {

/// The members of a record that hold one of the two set values and the rule of its growth.
struct GrowingField {
  int number;
  SetSingles ExerciseRecord::* value;
  SetSingles ExerciseRecord::* increment;
  SetSingles ExerciseRecord::* frequency;  // days
  SetDates ExerciseRecord::* nextUpdate;   // the frequency is counted from it
};

inline constexpr GrowingField kField1 = {
    1, &ExerciseRecord::SetValue1, &ExerciseRecord::SetIncrement1, &ExerciseRecord::SetFrequency1,
    &ExerciseRecord::NextUpdate1};
inline constexpr GrowingField kField2 = {
    2, &ExerciseRecord::SetValue2, &ExerciseRecord::SetIncrement2, &ExerciseRecord::SetFrequency2,
    &ExerciseRecord::NextUpdate2};

/// The field with the number 1 or 2.
constexpr const GrowingField& FieldOf(int number) {
  return number == kField1.number ? kField1 : kField2;
}

}  // namespace repvolta
