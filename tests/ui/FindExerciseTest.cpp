#include <gtest/gtest.h>

#include "ui/FindExercise.h"

namespace repvolta {
namespace {

const std::vector<QStringList> kNames = {{"Deep Split Squat", "Press-ups", ""},
                                         {"Squat", "Squat Jump", "Bench Press"}};

std::optional<ExercisePlace> Find(const QString& text) { return FindExercise(kNames, text); }

TEST(FindExercise, PrefersTheNameItself) { EXPECT_EQ(Find("Squat"), (ExercisePlace{1, 0})); }

TEST(FindExercise, PrefersTheBeginningOfANameToThatOfAWord) {
  EXPECT_EQ(Find("pre"), (ExercisePlace{0, 1}));
}

TEST(FindExercise, PrefersTheBeginningOfAWordToItsMiddle) {
  EXPECT_EQ(Find("s"), (ExercisePlace{1, 0}));
  EXPECT_EQ(Find("spl"), (ExercisePlace{0, 0}));
}

TEST(FindExercise, FindsTheMiddleOfAWord) { EXPECT_EQ(Find("ench"), (ExercisePlace{1, 2})); }

TEST(FindExercise, TakesTheFirstOfSeveral) { EXPECT_EQ(Find("p"), (ExercisePlace{0, 1})); }

TEST(FindExercise, TellsNoCapitalsAndBlanksAround) {
  EXPECT_EQ(Find(" bench PRESS "), (ExercisePlace{1, 2}));
}

TEST(FindExercise, FindsNothingForNothing) {
  EXPECT_EQ(Find(""), std::nullopt);
  EXPECT_EQ(Find("  "), std::nullopt);
}

TEST(FindExercise, FindsNothingThatIsNotThere) { EXPECT_EQ(Find("row"), std::nullopt); }

}  // namespace
}  // namespace repvolta
