#include "update/Growth.h"

#include <algorithm>
#include <stdexcept>

#include "base/Numbers.h"
#include "update/GrowingField.h"

namespace repvolta {
namespace {

constexpr int kSlots = kSetSlots;

/// A value is due the day after its frequency has passed (quirk 29). It is due only once, however
/// many frequencies have passed (quirk 31).
bool IsDue(const ExerciseRecord& exercise, const GrowingField& field, int set, double day) {
  const float frequency = (exercise.*field.frequency)[set];
  return frequency > 0 && (exercise.*field.nextUpdate)[set] + static_cast<double>(frequency) < day;
}

SetGrowth GrowthOf(const ExerciseRecord& exercise, const GrowingField& field, int set, double day) {
  const float value = (exercise.*field.value)[set];
  SetGrowth growth = {
      .set = set, .field = field.number, .from = value, .to = value, .day = day, .failure = {}};
  try {
    growth.to = AddSingles(value, (exercise.*field.increment)[set]);
  } catch (const std::overflow_error& error) {
    growth.failure = error.what();
  }
  return growth;
}

void GrowExercise(ExerciseRecord& exercise, double today, Steps& steps) {
  for (const SetGrowth& growth : GrowthOn(exercise, today)) {
    steps.CheckStop();
    Apply(growth, exercise);
    steps.LogFailure(growth.failure);
    steps.Log("Updated Field " + std::to_string(growth.field) + " in exercise - " +
              exercise.ExerciseName.Text());
  }
  // More sets than slots are an error, thrown after all slots have grown.
  if (exercise.NumberOfSets > kSlots) static_cast<void>(exercise.SetValue1[kSlots]);
}

}  // namespace

std::vector<SetGrowth> GrowthOn(const ExerciseRecord& exercise, double day) {
  std::vector<SetGrowth> growths;
  const int sets = std::min<int>(exercise.NumberOfSets, kSlots);
  for (int set = 0; set < sets; ++set) {
    for (const GrowingField& field : {kField1, kField2}) {
      if (IsDue(exercise, field, set, day)) growths.push_back(GrowthOf(exercise, field, set, day));
    }
  }
  return growths;
}

void Apply(const SetGrowth& growth, ExerciseRecord& exercise) {
  const GrowingField& field = FieldOf(growth.field);
  (exercise.*field.nextUpdate)[growth.set] = growth.day;  // even if the value stays (quirk 33)
  (exercise.*field.value)[growth.set] = growth.to;
}

std::vector<SetGrowth> Grow(ExerciseRecord& exercise, double day) {
  std::vector<SetGrowth> growths = GrowthOn(exercise, day);
  for (const SetGrowth& growth : growths) Apply(growth, exercise);
  return growths;
}

void GrowWorkout(Program& program, Steps& steps) {
  const double today = program.clock.Today();
  for (int i = 0; i < program.state.NumberOfExercises; ++i) {
    steps.Run([&] { GrowExercise(program.state.Workout[i], today, steps); });
  }
}

}  // namespace repvolta
