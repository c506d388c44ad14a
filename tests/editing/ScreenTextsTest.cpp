#include <QDate>
#include <QLocale>
#include <array>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>
#include <utility>
#include <vector>

#include "editing/ScreenTexts.h"

namespace repvolta {
namespace {

using testing::ElementsAre;

constexpr double kNoon = 39166.5;

std::string NextUpdate(float frequency, double date, double now = kNoon) {
  ExerciseRecord exercise;
  exercise.SetFrequency1[0] = frequency;
  exercise.NextUpdate1[0] = date;
  return NextUpdateText(exercise, 0, now);
}

TEST(ScreenTexts, ASummaryShowsSetsTimesAndRandomMusic) {
  ExerciseRecord exercise;
  exercise.NumberOfSets = 3;
  exercise.TargetExerciseTime = 320;
  exercise.TotalMusicTime = 375;
  EXPECT_EQ(SummaryLine(exercise), "03 sets, 05:20 Exercise, 06:15 Music");
  exercise.RandomMusic = kTrue;
  EXPECT_EQ(SummaryLine(exercise), "03 sets, 05:20 Exercise, 06:15 Music, Random Music");
}

TEST(ScreenTexts, AnOddFlagIsNoRandomMusic) {
  ExerciseRecord exercise;
  exercise.RandomMusic = 1;
  EXPECT_EQ(SummaryLine(exercise), "00 sets, 00:00 Exercise, 00:00 Music");
}

TEST(ScreenTexts, TheFieldsOfEachTypeHaveNames) {
  ExerciseRecord exercise;
  exercise.UserField1Name = " Tosses";
  exercise.UserField2Name = "Dwarves";
  const std::vector<FieldNames> names = {{"Weight", "Reps"},
                                         {"Level", "Time"},
                                         {"Distance", "Speed"},
                                         {" Tosses", "Dwarves"},
                                         {"", ""}};
  for (std::size_t type = 0; type < names.size(); ++type) {
    exercise.SetType = static_cast<std::int16_t>(type);
    EXPECT_EQ(FieldNamesOf(exercise), names[type]) << type;
  }
}

TEST(ScreenTexts, AFieldThatDoesNotGrowIsNotApplicable) {
  EXPECT_EQ(NextUpdate(0, 39166), "N/A, N/A");
  EXPECT_EQ(NextUpdate(-1, 39166), "N/A, N/A");
}

TEST(ScreenTexts, TheDaysToGoCountFromNowAndAreRoundedHalvesToEven) {
  EXPECT_EQ(NextUpdate(6, 39166), " 6, N/A");    // 5.5
  EXPECT_EQ(NextUpdate(5, 39166), " 4, N/A");    // 4.5
  EXPECT_EQ(NextUpdate(5, 39167.2), " 6, N/A");  // 5.7
}

TEST(ScreenTexts, TheDayOfTheGrowthReadsZero) {
  EXPECT_EQ(NextUpdate(1, 39165), " 0, N/A");    // -0.5
  EXPECT_EQ(NextUpdate(1, 39165.6), " 0, N/A");  // 0.1
}

TEST(ScreenTexts, AFieldWhoseDayHasPassedIsDue) { EXPECT_EQ(NextUpdate(1, 39164), "Due, N/A"); }

TEST(ScreenTexts, AFieldWhoseDayPassedLongAgoIsDue) {
  EXPECT_EQ(NextUpdate(1, 0), "Due, N/A");
  EXPECT_EQ(NextUpdate(1, -1e300), "Due, N/A");
}

TEST(ScreenTexts, TheSecondFieldStandsBehindTheFirst) {
  ExerciseRecord exercise;
  exercise.SetFrequency2[1] = 7;
  exercise.NextUpdate2[1] = 39166;
  EXPECT_EQ(NextUpdateText(exercise, 1, 39166), "N/A,  7");
}

TEST(ScreenTexts, DaysBeyondSixteenBitsOverflow) {
  EXPECT_EQ(DaysText(1, 39166 + 32766, 39166), " 32767");
  EXPECT_THROW(DaysText(1, 39166 + 32767, 39166), std::overflow_error);
  EXPECT_THROW(DaysText(1e6, 39166, kNoon), std::overflow_error);
  EXPECT_THROW(DaysText(1, std::nan(""), kNoon), std::overflow_error);
}

TEST(ScreenTexts, AFieldWhoseDayIsBeyondSixteenBitsReadsNever) {
  EXPECT_EQ(NextUpdate(1e6, 39166), "Never, N/A");
  EXPECT_EQ(NextUpdate(1, 1e300), "Never, N/A");
  EXPECT_EQ(NextUpdate(1, std::nan("")), "Never, N/A");
}

TEST(ScreenTexts, ADateHasTheShortFormOfTheLocale) {
  EXPECT_EQ(DateText(39166),
            QLocale().toString(QDate(2007, 3, 25), QLocale::ShortFormat).toStdString());
  EXPECT_EQ(DateText(39166.99), DateText(39166));
  EXPECT_EQ(DateText(0),
            QLocale().toString(QDate(1899, 12, 30), QLocale::ShortFormat).toStdString());
}

TEST(ScreenTexts, ANumberThatIsNoDateOverflows) {
  EXPECT_THROW(DateText(1e300), std::overflow_error);
  EXPECT_THROW(DateText(std::nan("")), std::overflow_error);
}

TEST(ScreenTexts, AnExerciseWithoutANameHasASummaryAndNoRow) {
  ProgramState state;
  state.Workout[0].ExerciseName = "  Squat ";
  state.Workout[1].ExerciseName = " ";
  state.NumberOfExercises = 2;
  EXPECT_THAT(ExerciseRows(state), ElementsAre("Squat"));
  EXPECT_EQ(SummaryRows(state).size(), 2U);
}

TEST(ScreenTexts, TheMusicOfAllExercisesIsAddedUp) {
  ProgramState state;
  state.NumberOfExercises = 2;
  state.Workout[0].TotalMusicTime = 32766;
  state.Workout[1].TotalMusicTime = 1;
  state.Workout[2].TotalMusicTime = 1;
  EXPECT_EQ(TotalMusicTimeText(state), "546:07");
  state.NumberOfExercises = 3;
  EXPECT_THROW(TotalMusicTimeText(state), std::overflow_error);
}

TEST(ScreenTexts, EachMusicFileHasARow) {
  ExerciseRecord exercise;
  exercise.MusicFile[0] = " b.mp3";
  exercise.MusicFile[1] = "a.mp3";
  exercise.NumberOfMusicFiles = 2;
  EXPECT_THAT(MusicRows(exercise), ElementsAre("b.mp3", "a.mp3"));
  exercise.NumberOfMusicFiles = kMusicSlots + 1;
  EXPECT_THROW(MusicRows(exercise), std::out_of_range);
}

TEST(ScreenTexts, TheTargetSaysHowMuchLongerOrShorterTheMusicIs) {
  ExerciseRecord exercise;
  exercise.NumberOfMusicFiles = 1;
  exercise.TargetExerciseTime = 300;
  const std::vector<std::pair<int, std::string>> texts = {
      {355, "55 s longer than the target"},     {301, "1 s longer than the target"},
      {360, "1:00 longer than the target"},     {425, "2:05 longer than the target"},
      {32767, "541:07 longer than the target"}, {170, "2:10 short of the target"},
      {241, "59 s short of the target"},        {0, "5:00 short of the target"},
      {300, "exactly as long as the target"}};
  for (const auto& [seconds, text] : texts) {
    exercise.TotalMusicTime = static_cast<std::int16_t>(seconds);
    EXPECT_EQ(TargetText(exercise), text);
  }
}

TEST(ScreenTexts, WithoutMusicOrTargetThereIsNothingToCompare) {
  ExerciseRecord exercise;
  exercise.TargetExerciseTime = 300;
  EXPECT_EQ(TargetText(exercise), "");
  exercise.NumberOfMusicFiles = 1;
  EXPECT_NE(TargetText(exercise), "");
  exercise.TargetExerciseTime = 0;
  EXPECT_EQ(TargetText(exercise), "");
}

TEST(ScreenTexts, TheTargetIsNotComparedWithRandomMusicThatIsDrawnAnew) {
  ExerciseRecord exercise;
  exercise.NumberOfMusicFiles = 2;
  exercise.TargetExerciseTime = 300;
  exercise.TotalMusicTime = 400;
  exercise.RandomMusic = kTrue;
  EXPECT_EQ(TargetText(exercise), "");
}

TEST(ScreenTexts, OddTimesOfADamagedWorkoutAreCompared) {
  ExerciseRecord exercise;
  exercise.NumberOfMusicFiles = 1;
  exercise.TargetExerciseTime = 32767;
  exercise.TotalMusicTime = -32768;
  EXPECT_EQ(TargetText(exercise), "1092:15 short of the target");
}

TEST(ScreenTexts, EachSetHasARowInAllColumns) {
  ExerciseRecord exercise;
  exercise.SetValue1[1] = 62.5;
  exercise.SetValue2[1] = 2;
  exercise.SetIncrement1[1] = 3;
  exercise.SetIncrement2[1] = -4;
  exercise.SetFrequency1[1] = 5;
  exercise.SetFrequency2[1] = 6;
  exercise.NextUpdate1[1] = exercise.NextUpdate2[1] = 39166;
  exercise.NumberOfSets = 2;
  const SetColumns columns = SetRows(exercise, 39166);
  const std::array<const char*, 7> second = {"62.5", "2", "3", "-4", "5", "6", " 5,  6"};
  for (std::size_t i = 0; i < columns.size(); ++i) {
    EXPECT_THAT(columns[i], ElementsAre(i == kNextUpdateList ? "N/A, N/A" : "0", second[i])) << i;
  }
  exercise.NumberOfSets = kSetSlots + 1;
  EXPECT_THROW(SetRows(exercise, 39166), std::out_of_range);
}

}  // namespace
}  // namespace repvolta
