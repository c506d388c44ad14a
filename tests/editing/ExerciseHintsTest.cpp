#include <gtest/gtest.h>

#include "editing/ExerciseHints.h"

namespace repvolta {
namespace {

TEST(ExerciseHints, SayWhetherTheExerciseHasRandomMusic) {
  ExerciseRecord exercise;
  EXPECT_EQ(RandomMusicText(exercise), "random music: off");
  exercise.RandomMusic = kTrue;
  EXPECT_EQ(RandomMusicText(exercise), "random music: on");
}

TEST(ExerciseHints, AnOddFlagIsNoRandomMusic) {
  ExerciseRecord exercise;
  exercise.RandomMusic = 1;
  EXPECT_EQ(RandomMusicText(exercise), "random music: off");
}

TEST(ExerciseHints, SayHowManySetsCanBeAdded) {
  ExerciseRecord exercise;
  EXPECT_EQ(SetLimitText(exercise), "An exercise has at most three sets: 3 more can be added.");
  exercise.NumberOfSets = 3;
  EXPECT_EQ(SetLimitText(exercise), "An exercise has at most three sets: no more can be added.");
}

TEST(ExerciseHints, SayHowManyMusicFilesCanBeAdded) {
  ExerciseRecord exercise;
  exercise.NumberOfMusicFiles = 9;
  EXPECT_EQ(MusicLimitText(exercise),
            "An exercise has at most ten music files: 1 more can be added.");
}

TEST(ExerciseHints, NothingCanBeAddedBeyondTheLimits) {
  ExerciseRecord exercise;
  exercise.NumberOfSets = 17;
  exercise.NumberOfMusicFiles = 12;
  EXPECT_EQ(SetLimitText(exercise), "An exercise has at most three sets: no more can be added.");
  EXPECT_EQ(MusicLimitText(exercise),
            "An exercise has at most ten music files: no more can be added.");
}

}  // namespace
}  // namespace repvolta
