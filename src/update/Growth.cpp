#include "update/Growth.h"

#include "base/Numbers.h"

namespace repvolta {
namespace {

/// One of the two values of a set, with the rule by which it grows.
struct GrowingField {
  int number;
  float& value;
  float increment;
  float frequency;  // days
  double& nextUpdate;
};

/// A value is due the day after its frequency has passed: the one day more is meant.
bool IsDue(const GrowingField& field, double today) {
  return field.frequency > 0 && field.nextUpdate + static_cast<double>(field.frequency) < today;
}

void GrowField(const GrowingField& field, double today, const std::string& exerciseName,
               Steps& steps) {
  if (!IsDue(field, today)) return;
  field.nextUpdate = today;
  steps.Run([&] { field.value = AddSingles(field.value, field.increment); });
  steps.Log("Updated Field " + std::to_string(field.number) + " in exercise - " + exerciseName);
}

void GrowExercise(ExerciseRecord& exercise, double today, Steps& steps) {
  const std::string& name = exercise.ExerciseName.Text();
  for (int set = 0; set < exercise.NumberOfSets; ++set) {
    GrowField({1, exercise.SetValue1[set], exercise.SetIncrement1[set], exercise.SetFrequency1[set],
               exercise.NextUpdate1[set]},
              today, name, steps);
    GrowField({2, exercise.SetValue2[set], exercise.SetIncrement2[set], exercise.SetFrequency2[set],
               exercise.NextUpdate2[set]},
              today, name, steps);
  }
}

}  // namespace

void GrowWorkout(Program& program, Steps& steps) {
  const double today = program.clock.Today();
  for (int i = 0; i < program.state.NumberOfExercises; ++i) {
    steps.Run([&] { GrowExercise(program.state.Workout[i], today, steps); });
  }
}

}  // namespace repvolta
