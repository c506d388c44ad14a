#include "instruction/TextInstruction.h"

#include "base/Numbers.h"

namespace repvolta {
namespace {

/// Only numbers above 1 have a plural, so it is "0rep" and ".5min" (quirk 5).
std::string PluralEnding(float value) { return value > 1.0F ? "s" : ""; }

/// Any units but zero are imperial (quirk 3).
std::string WeightAndReps(const ExerciseRecord& exercise, int set) {
  const float reps = exercise.SetValue2[set];
  return NumberText(exercise.SetValue1[set]) + (exercise.Units != kFalse ? "lb" : "kg") + " for " +
         NumberText(reps) + "rep" + PluralEnding(reps);
}

std::string LevelAndTime(const ExerciseRecord& exercise, int set) {
  const float minutes = exercise.SetValue2[set];
  return "Level " + NumberText(exercise.SetValue1[set]) + " for " + NumberText(minutes) + "min" +
         PluralEnding(minutes);
}

/// The distance has the unit of speed, and the speed has "km" (quirk 1).
std::string DistanceAndSpeed(const ExerciseRecord& exercise, int set) {
  return NumberText(exercise.SetValue1[set]) + (exercise.Units != kFalse ? "mph" : "kph") +
         " for " + NumberText(exercise.SetValue2[set]) + "km";
}

std::string SetText(const ExerciseRecord& exercise, int set) {
  switch (exercise.SetType) {
    case kWeightAndReps:
      return ", " + WeightAndReps(exercise, set);
    case kLevelAndTime:
      return ", " + LevelAndTime(exercise, set);
    case kDistanceAndSpeed:
      return ", " + DistanceAndSpeed(exercise, set);
    default:
      return "";  // quirk 8
  }
}

}  // namespace

// The sentence has the values even if the person does not want to hear them (quirk 10).
std::string GenerateTextInstruction(const ExerciseSlots& workout, std::int16_t exerciseIndex) {
  const ExerciseRecord& exercise = workout[exerciseIndex];
  std::string text = exercise.ExerciseName.Trimmed() + " - " + NumberText(exercise.NumberOfSets) +
                     (exercise.NumberOfSets == 1 ? " set" : " sets");
  for (int set = 0; set < exercise.NumberOfSets; ++set) text += SetText(exercise, set);
  return text;
}

}  // namespace repvolta
