#pragma once

#include <gtest/gtest.h>
#include <string>

#include "update/Program.h"

#include "fakes/FakeServices.h"
#include "fakes/RecordingRun.h"
#include "support/TemporaryFolder.h"

namespace repvolta {

inline constexpr double kToday = 39166;

/// A fresh program directory, which is current, with fake services. Today is day 39166, noon.
class ProgramFixture : public testing::Test {
 protected:
  ProgramFixture() { state.ProgramDirectory = folder.Path(); }

  /// The next unused slot, named.
  ExerciseRecord& AddExercise(const std::string& name) {
    ExerciseRecord& exercise = state.Workout[state.NumberOfExercises++];
    exercise.ExerciseName = name;
    return exercise;
  }

  TemporaryFolder folder;
  ProgramState state;
  RecordingRun run;
  FakeClock clock{kToday + 0.5};
  ScriptedNumbers random;
  FakeProcesses processes;
  FakeSpeech speech;
  Program program{state, clock, random, processes, speech};
};

/// Appends a set with these values.
inline void AddSet(ExerciseRecord& exercise, float first, float second) {
  exercise.SetValue1[exercise.NumberOfSets] = first;
  exercise.SetValue2[exercise.NumberOfSets] = second;
  ++exercise.NumberOfSets;
}

}  // namespace repvolta
