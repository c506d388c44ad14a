#include "app/WorkoutDamage.h"

#include "app/RecordFormat.h"

namespace repvolta {
namespace {

bool IsCountOf(std::size_t slots, std::int16_t count) {
  return count >= 0 && count <= static_cast<std::int16_t>(slots);
}

}  // namespace

bool HasImpossibleCounts(const ExerciseRecord& exercise) {
  return !IsCountOf(kSetSlots, exercise.NumberOfSets) ||
         !IsCountOf(kMusicSlots, exercise.NumberOfMusicFiles);
}

std::string DamageOf(const ProgramState& state) {
  for (int i = 0; i < state.NumberOfExercises; ++i) {
    if (HasImpossibleCounts(state.Workout[i])) {
      return state.WorkoutFileName +
             " seems to be damaged: it holds numbers that no workout can have.";
    }
  }
  return {};
}

std::string OddSizeOf(const ProgramState& state) {
  if (!state.KnownFile || state.KnownFile->name != state.WorkoutFileName) return {};
  const std::uint64_t size = state.KnownFile->stamp.size;
  if (size == kWorkoutFileSize) return {};
  return state.WorkoutFileName + " has " + std::to_string(size) + (size == 1 ? " byte" : " bytes") +
         " instead of " + std::to_string(kWorkoutFileSize) +
         (size < kWorkoutFileSize ? "; what is missing was filled up with blanks."
                                  : "; what is too much was ignored.");
}

}  // namespace repvolta
