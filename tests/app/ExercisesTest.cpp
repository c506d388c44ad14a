#include <gtest/gtest.h>
#include <stdexcept>

#include "app/Exercises.h"

namespace repvolta {
namespace {

TEST(InitialiseExercise, SetsTheValuesOfANewExercise) {
  ExerciseRecord exercise;
  exercise.ExerciseName = "Old";
  exercise.MusicFile[9] = "/music/old.mp3";
  exercise.MusicFilePlayTime[9] = 100;
  exercise.TotalMusicTime = 100;
  exercise.NumberOfMusicFiles = 10;
  exercise.NumberOfSets = 3;
  exercise.SetValue1[2] = exercise.SetIncrement2[2] = exercise.SetFrequency1[2] = 5;
  exercise.SetType = kUserDefined;
  exercise.Units = exercise.RandomMusic = kTrue;
  SettingsRecord settings;
  settings.DefaultExerciseTime = 5;

  InitialiseExercise(exercise, settings, 39166);

  ExerciseRecord expected;
  expected.TargetExerciseTime = 300;
  for (int set = 0; set < 3; ++set) expected.NextUpdate1[set] = expected.NextUpdate2[set] = 39166;
  expected.UserField1Name = "User1";
  expected.UserField2Name = "User2";
  EXPECT_EQ(exercise, expected);
}

TEST(InitialiseExercise, KeepsTheSlotsAboveTheLimits) {
  ExerciseRecord exercise;
  exercise.MusicFile[10] = "/music/kept.mp3";
  exercise.SetValue1[3] = 7;

  InitialiseExercise(exercise, {}, 39166);

  EXPECT_EQ(exercise.MusicFile[10].Text(), "/music/kept.mp3");
  EXPECT_EQ(exercise.SetValue1[3], 7);
}

TEST(InitialiseExercise, ChangesNothingWhenTheDefaultTimeDoesNotFit) {
  ExerciseRecord exercise;
  exercise.ExerciseName = "Old";
  const ExerciseRecord before = exercise;
  SettingsRecord settings;
  settings.DefaultExerciseTime = 547;

  EXPECT_THROW(InitialiseExercise(exercise, settings, 39166), std::overflow_error);

  EXPECT_EQ(exercise, before);
}

ProgramState WithPlayTimes(std::initializer_list<std::int16_t> times) {
  ProgramState state;
  state.CurrentExercise = 1;
  ExerciseRecord& exercise = state.Workout[1];
  for (const std::int16_t time : times) {
    exercise.MusicFilePlayTime[exercise.NumberOfMusicFiles++] = time;
  }
  return state;
}

TEST(CalculateExerciseMusicTime, AddsUpTheStoredTimes) {
  ProgramState state = WithPlayTimes({100, 200, 300});
  state.Workout[1].MusicFilePlayTime[3] = 999;
  CalculateExerciseMusicTime(state);
  EXPECT_EQ(state.Workout[1].TotalMusicTime, 600);
}

TEST(CalculateExerciseMusicTime, StoresZeroForAnEmptyList) {
  ProgramState state = WithPlayTimes({});
  state.Workout[1].TotalMusicTime = 5;
  CalculateExerciseMusicTime(state);
  EXPECT_EQ(state.Workout[1].TotalMusicTime, 0);
}

TEST(CalculateExerciseMusicTime, RefusesASumThatDoesNotFit) {
  ProgramState state = WithPlayTimes({32000, 768});
  EXPECT_THROW(CalculateExerciseMusicTime(state), std::overflow_error);
}

TEST(CalculateExerciseMusicTime, RefusesMoreFilesThanSlots) {
  ProgramState state = WithPlayTimes({});
  state.Workout[1].NumberOfMusicFiles = 13;
  EXPECT_THROW(CalculateExerciseMusicTime(state), std::out_of_range);
}

}  // namespace
}  // namespace repvolta
