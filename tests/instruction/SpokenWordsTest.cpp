#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "instruction/SpokenWords.h"

namespace repvolta {
namespace {

using Words = std::vector<std::string>;

struct NumberExample {
  float value;
  Words words;
};

class SpokenWordsOfNumber : public testing::TestWithParam<NumberExample> {};

TEST_P(SpokenWordsOfNumber, AreThoseOfItsDigits) {
  EXPECT_EQ(WordsOfNumber(GetParam().value).words, GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(
    Examples, SpokenWordsOfNumber,
    testing::Values(NumberExample{5, {"5"}}, NumberExample{12, {"12"}}, NumberExample{40, {"40"}},
                    NumberExample{47, {"40", "7"}}, NumberExample{100, {"100"}},
                    NumberExample{135, {"100", "and", "30", "5"}},
                    NumberExample{2.5F, {"2", "point", "5"}}, NumberExample{0.5F, {"point", "5"}},
                    NumberExample{1250, {"1000", "200", "and", "50"}},
                    NumberExample{1050, {"1000", "50"}}, NumberExample{2000, {"2000"}},
                    NumberExample{7.97F, {"7", "point"}}, NumberExample{12345, {"and"}},
                    NumberExample{0, {}}, NumberExample{-3, {}}));

INSTANTIATE_TEST_SUITE_P(
    Edges, SpokenWordsOfNumber,
    testing::Values(NumberExample{1, {"1"}}, NumberExample{10, {"10"}}, NumberExample{19, {"19"}},
                    NumberExample{20, {"20"}}, NumberExample{99, {"90", "9"}},
                    NumberExample{105, {"100", "and", "5"}},
                    NumberExample{100.5F, {"100", "point", "5"}}, NumberExample{0.04F, {"point"}},
                    NumberExample{0.96F, {"point"}}, NumberExample{999, {"900", "and", "90", "9"}},
                    NumberExample{1000, {"1000"}}, NumberExample{1005, {"1000", "5"}},
                    NumberExample{9999, {"9000", "900", "and", "90", "9"}},
                    NumberExample{10000, {"and"}}, NumberExample{62.3F, {"60", "2", "point", "3"}},
                    NumberExample{-0.5F, {}}));

INSTANTIATE_TEST_SUITE_P(Decimals, SpokenWordsOfNumber,
                         testing::Values(NumberExample{0.25F, {"point", "2"}},
                                         NumberExample{0.75F, {"point", "8"}},
                                         NumberExample{0.35F, {"point", "3"}},
                                         NumberExample{0.94F, {"point", "9"}},
                                         NumberExample{7.5F, {"7", "point", "5"}}));

constexpr float kInfinity = std::numeric_limits<float>::infinity();

INSTANTIATE_TEST_SUITE_P(NoNumbers, SpokenWordsOfNumber,
                         testing::Values(NumberExample{std::nanf(""), {}},
                                         NumberExample{-kInfinity, {}},
                                         NumberExample{kInfinity, {"and"}}));

TEST(SpokenWords, LeaveTheFractionAsTheRestOfANumber) {
  EXPECT_EQ(WordsOfNumber(62.3F).rest, 62.3F - 60 - 2);
}

TEST(SpokenWords, LeaveTheWholeOfANumberThatTheyCannotSay) {
  EXPECT_EQ(WordsOfNumber(12345).rest, 12345);
  EXPECT_EQ(WordsOfNumber(-3).rest, -3);
}

struct SetOfValues {
  float first;
  float second;
};

/// A Squat with these sets.
struct InstructionExample {
  std::int16_t type;
  Flag units;
  std::vector<SetOfValues> sets;
  const char* words;  // after the name
};

ExerciseRecord Squat(const InstructionExample& example) {
  ExerciseRecord exercise;
  exercise.ExerciseName = "Squat";
  exercise.SetType = example.type;
  exercise.Units = example.units;
  for (const SetOfValues& set : example.sets) {
    exercise.SetValue1[exercise.NumberOfSets] = set.first;
    exercise.SetValue2[exercise.NumberOfSets++] = set.second;
  }
  return exercise;
}

/// The clips in one line, the name's in angle brackets: "<Squat> 1 set".
std::string Line(const SpokenInstruction& instruction) {
  std::string line;
  for (const Clip& clip : instruction.clips) {
    if (!line.empty()) line += ' ';
    line += clip.kind == Clip::Kind::kName ? "<" + clip.text + ">" : clip.text;
  }
  return line;
}

std::string Said(const ExerciseRecord& exercise) {
  const SpokenInstruction instruction = ClipsOfInstruction(exercise, SetValues::kSaid);
  EXPECT_EQ(instruction.failure, "");
  return Line(instruction);
}

class SpokenWordsOfInstruction : public testing::TestWithParam<InstructionExample> {};

TEST_P(SpokenWordsOfInstruction, AreNameCountAndSets) {
  EXPECT_EQ(Said(Squat(GetParam())), std::string("<Squat> ") + GetParam().words);
}

constexpr std::int16_t kOtherType = 7;
constexpr Flag kOtherFlag = 1;

INSTANTIATE_TEST_SUITE_P(
    Weights, SpokenWordsOfInstruction,
    testing::Values(
        InstructionExample{kWeightAndReps,
                           kFalse,
                           {{50, 10}, {60, 8}},
                           "2 sets 50 kilograms for 10 reps 60 kilograms for 8 reps"},
        InstructionExample{kWeightAndReps,
                           kFalse,
                           {{50, 10}, {50, 10}},
                           "2 sets 50 kilograms for 10 reps 50 kilograms for 10 reps"},
        InstructionExample{
            kWeightAndReps, kTrue, {{135, 1}}, "1 set 100 and 30 5 pounds for 1 reps"},
        InstructionExample{kWeightAndReps, kOtherFlag, {{50, 1}}, "1 set 50 pounds for 1 reps"},
        InstructionExample{kWeightAndReps, kFalse, {{0, 10}}, "1 set kilograms for 10 reps"}));

INSTANTIATE_TEST_SUITE_P(
    Levels, SpokenWordsOfInstruction,
    testing::Values(
        InstructionExample{kLevelAndTime, kFalse, {{5, 1}}, "1 set level 5 for 1 minutes"},
        InstructionExample{
            kLevelAndTime, kTrue, {{6.5F, 20}}, "1 set level 6 point 5 for 20 minutes"}));

INSTANTIATE_TEST_SUITE_P(
    SpeedBeforeDistanceWithTheOtherUnits, SpokenWordsOfInstruction,
    testing::Values(
        InstructionExample{kDistanceAndSpeed, kTrue, {{5, 10}}, "1 set 10 kph for 5 kilometers"},
        InstructionExample{kDistanceAndSpeed, kFalse, {{5, 10}}, "1 set 10 mph for 5 miles"},
        InstructionExample{kDistanceAndSpeed, kOtherFlag, {{5, 10}}, "1 set 10 mph for 5 miles"}));

INSTANTIATE_TEST_SUITE_P(
    NoValues, SpokenWordsOfInstruction,
    testing::Values(InstructionExample{kUserDefined, kFalse, {{5, 10}}, "1 set"},
                    InstructionExample{kOtherType, kFalse, {{5, 10}, {6, 9}}, "2 sets"},
                    InstructionExample{kWeightAndReps, kFalse, {}, "sets"}));

TEST(SpokenWords, LeaveOutTheValuesOfEveryTypeWhereTheyAreNotAskedFor) {
  for (const std::int16_t type : {kWeightAndReps, kLevelAndTime, kDistanceAndSpeed, kUserDefined}) {
    const ExerciseRecord exercise = Squat({type, kFalse, {{50, 10}, {60, 8}}, ""});
    EXPECT_EQ(Line(ClipsOfInstruction(exercise, SetValues::kLeftOut)), "<Squat> 2 sets") << type;
  }
}

TEST(SpokenWords, BeginWithTheTrimmedName) {
  ExerciseRecord exercise;
  exercise.ExerciseName = "  Goblet Squat ";
  EXPECT_EQ(Said(exercise), "<Goblet Squat> sets");
}

TEST(SpokenWords, SaySetsWithoutANumberForANegativeCount) {
  ExerciseRecord exercise = Squat({kWeightAndReps, kFalse, {}, ""});
  exercise.NumberOfSets = -1;
  EXPECT_EQ(Said(exercise), "<Squat> sets");
}

TEST(SpokenWords, SayAllSeventeenSets) {
  const ExerciseRecord exercise = Squat({kLevelAndTime, kFalse, {17, SetOfValues{5, 1}}, ""});
  std::string words = "<Squat> 17 sets";
  for (int set = 0; set < 17; ++set) words += " level 5 for 1 minutes";
  EXPECT_EQ(Said(exercise), words);
}

/// One set more than there are slots for.
SpokenInstruction SaidOfEighteenSets(std::int16_t type) {
  ExerciseRecord exercise = Squat({type, kFalse, {17, SetOfValues{5, 1}}, ""});
  exercise.NumberOfSets = 18;
  return ClipsOfInstruction(exercise, SetValues::kSaid);
}

TEST(SpokenWords, EndBehindTheSetsThatExistAndSayWhy) {
  const SpokenInstruction instruction = SaidOfEighteenSets(kWeightAndReps);
  std::string words = "<Squat> 18 sets";
  for (int set = 0; set < 17; ++set) words += " 5 kilograms for 1 reps";
  EXPECT_EQ(Line(instruction), words);
  EXPECT_EQ(instruction.failure, "Number 17 is outside 0 to 16");
}

TEST(SpokenWords, EndBeforeTheLevelThatDoesNotExist) {
  EXPECT_TRUE(Line(SaidOfEighteenSets(kLevelAndTime)).ends_with("for 1 minutes level"));
}

TEST(SpokenWords, MissNoSetWhereNoValuesAreSaid) {
  EXPECT_EQ(SaidOfEighteenSets(kUserDefined).failure, "");
}

}  // namespace
}  // namespace repvolta
