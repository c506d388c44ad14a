#include "app/WorkoutDamage.h"

namespace repvolta {
namespace {

bool IsCountOf(std::size_t slots, std::int16_t count) {
  return count >= 0 && count <= static_cast<std::int16_t>(slots);
}

}  // namespace

std::string DamageOf(const ProgramState& state) {
  for (int i = 0; i < state.NumberOfExercises; ++i) {
    const ExerciseRecord& exercise = state.Workout[i];
    if (!IsCountOf(kSetSlots, exercise.NumberOfSets) ||
        !IsCountOf(kMusicSlots, exercise.NumberOfMusicFiles)) {
      return state.WorkoutFileName +
             " seems to be damaged: it holds numbers that no workout can have.";
    }
  }
  return {};
}

}  // namespace repvolta
