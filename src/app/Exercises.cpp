#include "app/Exercises.h"

#include "base/Numbers.h"

namespace repvolta {

void InitialiseExercise(ExerciseRecord& exercise, const SettingsRecord& settings, double today) {
  const std::int16_t targetTime = CheckedInt16(std::int64_t{settings.DefaultExerciseTime} * 60);
  for (int i = 0; i < MaxMusicFiles; ++i) {
    exercise.MusicFile[i] = {};
    exercise.MusicFilePlayTime[i] = 0;
  }
  exercise.TargetExerciseTime = targetTime;
  exercise.TotalMusicTime = 0;
  exercise.NumberOfMusicFiles = 0;
  exercise.NumberOfSets = 0;
  for (int i = 0; i < MaxSets; ++i) {
    exercise.SetValue1[i] = exercise.SetValue2[i] = 0;
    exercise.SetIncrement1[i] = exercise.SetIncrement2[i] = 0;
    exercise.SetFrequency1[i] = exercise.SetFrequency2[i] = 0;
    exercise.NextUpdate1[i] = exercise.NextUpdate2[i] = today;
  }
  exercise.SetType = kWeightAndReps;
  exercise.UserField1Name = "User1";
  exercise.UserField2Name = "User2";
  exercise.Units = kFalse;
  exercise.RandomMusic = kFalse;
  exercise.ExerciseName = {};
}

void CalculateExerciseMusicTime(ProgramState& state) {
  ExerciseRecord& exercise = state.Workout[state.CurrentExercise];
  std::int16_t total = 0;
  for (int i = 0; i < exercise.NumberOfMusicFiles; ++i) {
    total = CheckedInt16(total + exercise.MusicFilePlayTime[i]);
  }
  exercise.TotalMusicTime = total;
}

}  // namespace repvolta
