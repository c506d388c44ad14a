#include <gtest/gtest.h>
#include <stdexcept>
#include <vector>

#include "instruction/TextInstruction.h"

namespace repvolta {
namespace {

struct SetValues {
  float first;
  float second;
};

struct Example {
  const char* name;
  std::int16_t type;
  Flag units;
  std::vector<SetValues> sets;
  const char* sentence;
};

ExerciseSlots Workout(const Example& example) {
  ExerciseSlots workout;
  ExerciseRecord& exercise = workout[1];
  exercise.ExerciseName = example.name;
  exercise.SetType = example.type;
  exercise.Units = example.units;
  for (const SetValues& set : example.sets) {
    exercise.SetValue1[exercise.NumberOfSets] = set.first;
    exercise.SetValue2[exercise.NumberOfSets++] = set.second;
  }
  return workout;
}

class Sentence : public testing::TestWithParam<Example> {};

TEST_P(Sentence, SaysNameAndSets) {
  EXPECT_EQ(GenerateTextInstruction(Workout(GetParam()), 1), GetParam().sentence);
}

constexpr std::int16_t kOther = 7;

INSTANTIATE_TEST_SUITE_P(
    Examples, Sentence,
    testing::Values(
        Example{"  Bench Press  ",
                0,
                0,
                {{50, 10}, {55, 8}, {60, 6}},
                "Bench Press - 3 sets, 50kg for 10reps, 55kg for 8reps, 60kg for 6reps"},
        Example{"Squat", 0, -1, {{135, 1}}, "Squat - 1 set, 135lb for 1rep"},
        Example{"Bike",
                1,
                0,
                {{5, 10}, {6.5F, 0.5F}},
                "Bike - 2 sets, Level 5 for 10mins, Level 6.5 for .5min"},
        Example{"Treadmill", 2, -1, {{3, 6.5F}}, "Treadmill - 1 set, 3mph for 6.5km"},
        Example{
            "Rowing", 2, 0, {{1, 12}, {2, 12}}, "Rowing - 2 sets, 1kph for 12km, 2kph for 12km"},
        Example{"Stretch", 3, 0, {{1, 2}, {3, 4}}, "Stretch - 2 sets"},
        Example{"Stretch", kOther, 0, {{1, 2}}, "Stretch - 1 set"},
        Example{"Plank", 0, 0, {}, "Plank - 0 sets"},
        Example{"Dips", 0, 0, {{0, 1.5F}}, "Dips - 1 set, 0kg for 1.5reps"}));

INSTANTIATE_TEST_SUITE_P(
    EqualSets, Sentence,
    testing::Values(Example{
        "A", 0, 0, {{50, 10}, {50, 10}}, "A - 2 sets, 50kg for 10reps, 50kg for 10reps"}));

INSTANTIATE_TEST_SUITE_P(
    Plurals, Sentence,
    testing::Values(Example{"A", 0, 0, {{1, 1}}, "A - 1 set, 1kg for 1rep"},
                    Example{"A", 0, 0, {{1, 1.01F}}, "A - 1 set, 1kg for 1.01reps"},
                    Example{"A", 0, 0, {{1, 0}}, "A - 1 set, 1kg for 0rep"},
                    Example{"A", 0, 0, {{1, 0.5F}}, "A - 1 set, 1kg for .5rep"},
                    Example{"A", 1, 0, {{1, 1}}, "A - 1 set, Level 1 for 1min"},
                    Example{"A", 1, 0, {{1, 1.01F}}, "A - 1 set, Level 1 for 1.01mins"},
                    Example{"A", 1, 0, {{1, 0}}, "A - 1 set, Level 1 for 0min"}));

INSTANTIATE_TEST_SUITE_P(
    Numbers, Sentence,
    testing::Values(Example{"A", 0, 0, {{0.25F, 2}}, "A - 1 set, .25kg for 2reps"},
                    Example{"A", 0, 0, {{-3, 2}}, "A - 1 set, -3kg for 2reps"},
                    Example{"A", 0, 0, {{2.50F, 2}}, "A - 1 set, 2.5kg for 2reps"},
                    Example{"A", 0, 0, {{100, 2}}, "A - 1 set, 100kg for 2reps"}));

TEST(TextInstruction, TakesAnyUnitsButZeroAsImperial) {
  EXPECT_EQ(GenerateTextInstruction(Workout({"A", 0, 1, {{1, 2}}, ""}), 1),
            "A - 1 set, 1lb for 2reps");
}

TEST(TextInstruction, SaysSetsForANegativeCount) {
  ExerciseSlots workout = Workout({"A", 0, 0, {}, ""});
  workout[1].NumberOfSets = -1;
  EXPECT_EQ(GenerateTextInstruction(workout, 1), "A - -1 sets");
}

TEST(TextInstruction, BeginsWithTheDashWhenTheNameIsBlank) {
  EXPECT_EQ(GenerateTextInstruction(Workout({"   ", 0, 0, {}, ""}), 1), " - 0 sets");
}

TEST(TextInstruction, HasNoBlanksBehindANameOfFullWidth) {
  const std::string name = "Plank" + std::string(251, ' ');
  EXPECT_EQ(GenerateTextInstruction(Workout({name.c_str(), 0, 0, {}, ""}), 1), "Plank - 0 sets");
}

TEST(TextInstruction, RefusesWhatLiesOutsideTheSlots) {
  ExerciseSlots workout = Workout({"A", 0, 0, {}, ""});
  workout[1].NumberOfSets = 18;
  EXPECT_THROW(GenerateTextInstruction(workout, 1), std::out_of_range);
  EXPECT_THROW(GenerateTextInstruction(workout, 52), std::out_of_range);
  EXPECT_THROW(GenerateTextInstruction(workout, -1), std::out_of_range);
}

}  // namespace
}  // namespace repvolta
