#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <utility>

#include "base/Days.h"
#include "editing/WorkoutDifference.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using Exercises = std::vector<ExerciseRecord>;
using Lines = std::vector<std::string>;

/// Two sets and two songs.
ExerciseRecord Sample(const std::string& name) {
  ExerciseRecord exercise;
  exercise.ExerciseName = name;
  exercise.NumberOfSets = 2;
  for (int set = 0; set < 2; ++set) {
    exercise.SetValue1[set] = 55;
    exercise.SetValue2[set] = 10;
    exercise.SetIncrement1[set] = 2.5F;
    exercise.SetFrequency1[set] = 7;
    exercise.NextUpdate1[set] = exercise.NextUpdate2[set] = DateOf(2026, 6, 1);
  }
  exercise.NumberOfMusicFiles = 2;
  exercise.MusicFile[0] = "/music/Run.mp3";
  exercise.MusicFile[1] = "/music/Walk.mp3";
  exercise.TargetExerciseTime = 320;
  exercise.TotalMusicTime = 375;
  return exercise;
}

/// What would be different if "Press" were as `change` makes it.
Lines WhenThen(const std::function<void(ExerciseRecord&)>& change) {
  Exercises then = {Sample("Press")};
  change(then[0]);
  return WorkoutDifference(then, {Sample("Press")});
}

TEST(WorkoutDifference, IsEmptyForEqualWorkouts) {
  EXPECT_THAT(WorkoutDifference({}, {}), IsEmpty());
  EXPECT_THAT(WorkoutDifference({Sample("Press"), Sample("Row")}, {Sample("Press"), Sample("Row")}),
              IsEmpty());
}

TEST(WorkoutDifference, NamesTheSetAndTheValueAsTheWindowDoes) {
  EXPECT_THAT(WhenThen([](auto& press) { press.SetValue1[1] = 52.5F; }),
              ElementsAre("Press, set 2: Weight 52.5 instead of 55"));
}

TEST(WorkoutDifference, HasOneLineForAllThatDiffersInASet) {
  EXPECT_THAT(WhenThen([](auto& press) {
                press.SetValue1[0] = 0.5F;
                press.SetIncrement1[0] = 5;
                press.SetFrequency1[0] = 1;
                press.NextUpdate1[0] = DateOf(2026, 6, 16);
                press.SetValue2[0] = 12;
                press.SetFrequency2[0] = 8;
              }),
              ElementsAre("Press, set 1: Weight 0.5 instead of 55, "
                          "increment of Weight 5 instead of 2.5, "
                          "Weight grows every 1 day instead of every 7 days, "
                          "days of Weight counted from Tue 16 Jun 2026 instead of Mon 1 Jun 2026, "
                          "Reps 12 instead of 10, Reps grows every 8 days instead of never"));
}

TEST(WorkoutDifference, CallsUserDefinedNumbersByTheirNames) {
  Exercises then = {Sample("Press")};
  then[0].SetType = kUserDefined;
  then[0].UserField1Name = "Tosses";
  Exercises now = then;
  then[0].SetValue1[0] = 1;
  then[0].SetValue2[0] = 2;
  EXPECT_THAT(WorkoutDifference(then, now),
              ElementsAre("Press, set 1: Tosses 1 instead of 55, second value 2 instead of 10"));
}

TEST(WorkoutDifference, NamesAnImpossibleDay) {
  EXPECT_THAT(WhenThen([](auto& press) { press.NextUpdate2[0] = 1e300; }),
              ElementsAre("Press, set 1: days of Reps counted from an impossible day instead of "
                          "Mon 1 Jun 2026"));
}

TEST(WorkoutDifference, TellsWhichSetsComeAndGo) {
  EXPECT_THAT(
      WhenThen([](auto& press) {
        press.NumberOfSets = 3;
        press.SetValue1[2] = 60;
      }),
      ElementsAre("Press: 3 sets instead of 2 sets", "Press, set 3: only then, Weight 60, Reps 0"));
  EXPECT_THAT(
      WhenThen([](auto& press) { press.NumberOfSets = 1; }),
      ElementsAre("Press: 1 set instead of 2 sets", "Press, set 2: only now, Weight 55, Reps 10"));
}

TEST(WorkoutDifference, TellsWhatIsTrueForTheWholeExercise) {
  EXPECT_THAT(
      WhenThen([](auto& press) {
        press.SetType = kDistanceAndSpeed;
        press.Units = kTrue;
        press.RandomMusic = kTrue;
        press.TargetExerciseTime = 60;
        press.UserField1Name = "Tosses";
      }),
      ElementsAre("Press: Distance/Speed instead of Weight/Reps",
                  "Press: name of the first number \"Tosses\" instead of \"\"",
                  "Press: Imperial instead of Metric", "Press: target time 01:00 instead of 05:20",
                  "Press: random music instead of own music"));
}

TEST(WorkoutDifference, TellsWhichSongsComeAndGo) {
  EXPECT_THAT(
      WhenThen([](auto& press) {
        press.NumberOfMusicFiles = 3;
        press.MusicFile[1] = "/music/Jump.mp3";
        press.MusicFile[2] = "/music/Sleep.mp3";
        press.MusicFilePlayTime[2] = 200;
        press.TotalMusicTime = 600;
      }),
      ElementsAre("Press, music: 3 songs instead of 2",
                  "Press, music: only then Jump.mp3, Sleep.mp3", "Press, music: only now Walk.mp3",
                  "Press, music: 10:00 in all instead of 06:15"));
}

TEST(WorkoutDifference, TellsThatASongIsThereOnceMore) {
  EXPECT_THAT(WhenThen([](auto& press) { press.MusicFile[1] = "/music/Run.mp3"; }),
              ElementsAre("Press, music: only then Run.mp3", "Press, music: only now Walk.mp3"));
}

TEST(WorkoutDifference, TellsAnotherOrderOfTheSongs) {
  EXPECT_THAT(WhenThen([](auto& press) { std::swap(press.MusicFile[0], press.MusicFile[1]); }),
              ElementsAre("Press, music: another order: Walk.mp3, Run.mp3"));
}

TEST(WorkoutDifference, HasThePathsOfSongsWithTheSameName) {
  EXPECT_THAT(
      WhenThen([](auto& press) { press.MusicFile[0] = "/old/Run.mp3"; }),
      ElementsAre("Press, music: only then /old/Run.mp3", "Press, music: only now /music/Run.mp3"));
}

TEST(WorkoutDifference, TellsWhichExercisesComeAndGo) {
  ExerciseRecord plank = Sample("Plank");
  plank.SetType = kLevelAndTime;
  EXPECT_THAT(WorkoutDifference({Sample("Press"), plank}, {Sample("Press")}),
              ElementsAre("Plank: only then"));
  EXPECT_THAT(WorkoutDifference({Sample("Press")}, {plank, Sample("Press")}),
              ElementsAre("Plank: only now"));
}

TEST(WorkoutDifference, TellsAnotherOrderOfTheExercises) {
  EXPECT_THAT(WorkoutDifference({Sample("Press"), Sample("Row"), Sample("Squat")},
                                {Sample("Row"), Sample("Squat"), Sample("Press")}),
              ElementsAre("The order: Press, Row and Squat instead of Row, Squat and Press"));
}

TEST(WorkoutDifference, FindsARenamedExercise) {
  Exercises now = {Sample("Bench Press")};
  EXPECT_THAT(WorkoutDifference({Sample("Press")}, now),
              ElementsAre("Bench Press: name Press instead of Bench Press"));
  now[0].TargetExerciseTime = 60;
  EXPECT_THAT(WorkoutDifference({Sample("Press")}, now),
              ElementsAre("Bench Press: name Press instead of Bench Press",
                          "Bench Press: target time 05:20 instead of 01:00"));
  now[0].SetValue1[0] = 60;
  EXPECT_THAT(WorkoutDifference({Sample("Press")}, now),
              ElementsAre("Press: only then", "Bench Press: only now"));
}

TEST(WorkoutDifference, ComparesExercisesOfOneNameInTheirOrder) {
  Exercises then = {Sample("Press"), Sample("Press")};
  const Exercises now = then;
  then[1].SetValue1[0] = 50;
  EXPECT_THAT(WorkoutDifference(then, now),
              ElementsAre("Press (2), set 1: Weight 50 instead of 55"));
}

TEST(WorkoutDifference, FindsWhichOfSeveralExercisesOfOneNameIsGone) {
  Exercises then = {Sample("Press"), Sample("Press"), Sample("Press")};
  then[0].SetValue1[0] = 1;
  then[2].SetValue1[0] = 3;
  EXPECT_THAT(WorkoutDifference(then, {then[0], then[2]}), ElementsAre("Press (2): only then"));
}

TEST(WorkoutDifference, FitsEachDifferenceOnALine) {
  EXPECT_THAT(WorkoutDifference({Sample("Bench\nPress")}, {}),
              ElementsAre("Bench?Press: only then"));
}

/// A change of each field of a record, once where the window shows it, if it does, and once where
/// it does not.
std::vector<std::function<void(ExerciseRecord&)>> ChangesOfEachField() {
  std::vector<std::function<void(ExerciseRecord&)>> changes;
  for (const int slot : {0, 11}) {
    changes.push_back([slot](auto& one) { one.MusicFile[slot] = "/music/Other.mp3"; });
    changes.push_back([slot](auto& one) { one.MusicFilePlayTime[slot] = 7; });
  }
  for (const auto field :
       {&ExerciseRecord::TargetExerciseTime, &ExerciseRecord::TotalMusicTime,
        &ExerciseRecord::NumberOfMusicFiles, &ExerciseRecord::NumberOfSets,
        &ExerciseRecord::SetType, &ExerciseRecord::Units, &ExerciseRecord::RandomMusic}) {
    changes.push_back([field](auto& one) { one.*field = 1; });
    changes.push_back([field](auto& one) { one.*field = kTrue; });
  }
  for (const int slot : {0, 16}) {
    for (const auto field : {&ExerciseRecord::SetValue1, &ExerciseRecord::SetValue2,
                             &ExerciseRecord::SetIncrement1, &ExerciseRecord::SetIncrement2,
                             &ExerciseRecord::SetFrequency1, &ExerciseRecord::SetFrequency2}) {
      changes.push_back([=](auto& one) { (one.*field)[slot] = 99; });
      // So little that no digit of it is shown.
      changes.push_back([=](auto& one) { (one.*field)[slot] += (one.*field)[slot] * 1.2e-7F; });
    }
    for (const auto field : {&ExerciseRecord::NextUpdate1, &ExerciseRecord::NextUpdate2}) {
      changes.push_back([=](auto& one) { (one.*field)[slot] += 1; });
      changes.push_back([=](auto& one) { (one.*field)[slot] += 0.25; });
    }
  }
  for (const auto field : {&ExerciseRecord::UserField1Name, &ExerciseRecord::UserField2Name}) {
    changes.push_back([field](auto& one) { one.*field = "Tosses"; });
  }
  changes.push_back([](auto& one) { one.ExerciseName = "Other"; });
  changes.push_back([](auto& one) { one.ExerciseName = " Press"; });
  changes.push_back([](auto& one) { one.ReservedTexts.bytes[9] = 1; });
  changes.push_back([](auto& one) { one.ReservedTail.bytes[9] = 1; });
  return changes;
}

TEST(WorkoutDifference, HasALineForEachFieldThatDiffers) {
  int number = 0;
  for (const auto& change : ChangesOfEachField()) {
    ExerciseRecord changed = Sample("Press");
    change(changed);
    if (changed == Sample("Press")) continue;  // 0 does not grow by a share of it
    EXPECT_THAT(WorkoutDifference({changed}, {Sample("Press")}), testing::Not(IsEmpty())) << number;
    EXPECT_THAT(WorkoutDifference({Sample("Press")}, {changed}), testing::Not(IsEmpty())) << number;
    ++number;
  }
  EXPECT_GT(number, 45);
}

TEST(WorkoutDifference, AlsoTellsOfWhatTheWindowDoesNotShowBesideWhatItShows) {
  EXPECT_THAT(
      WhenThen([](auto& press) {
        press.SetValue1[0] = 50;
        press.ReservedTail.bytes[0] = 1;
      }),
      ElementsAre("Press, set 1: Weight 50 instead of 55", "Press: what the window does not show"));
}

TEST(WorkoutDifference, IsEmptyOnlyForEqualWorkouts) {
  std::mt19937 random(20261122);
  const auto below = [&](std::size_t end) { return random() % end; };
  const auto changes = ChangesOfEachField();
  const auto sample = [&] {
    Exercises workout;
    const std::size_t count = below(4);
    for (std::size_t i = 0; i < count; ++i) {
      workout.push_back(Sample(below(2) == 0 ? "Press" : "Row"));
      if (below(3) == 0) changes[below(changes.size())](workout.back());
    }
    return workout;
  };
  int equal = 0;
  for (int i = 0; i < 3000; ++i) {
    const Exercises then = sample();
    const Exercises now = sample();
    if (then == now) ++equal;
    ASSERT_EQ(WorkoutDifference(then, now).empty(), then == now) << i;
  }
  EXPECT_GT(equal, 100);
}

TEST(ExercisesText, CountsAndNamesThem) {
  EXPECT_EQ(ExercisesText({}), "No exercises");
  EXPECT_EQ(ExercisesText({Sample("Press")}), "1 exercise: Press");
  EXPECT_EQ(ExercisesText({Sample("Press"), Sample("Row"), Sample("Squat")}),
            "3 exercises: Press, Row and Squat");
}

TEST(WorkoutLines, HaveTheSummaryOfEachExercise) {
  EXPECT_THAT(WorkoutLines({Sample("Press"), Sample("Row")}), SizeIs(2));
  EXPECT_EQ(WorkoutLines({Sample("Press")})[0], "Press: 02 sets, 05:20 Exercise, 06:15 Music");
}

}  // namespace
}  // namespace repvolta
