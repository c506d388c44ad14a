#include <QDate>
#include <QLocale>
#include <cmath>
#include <gtest/gtest.h>
#include <stdexcept>
#include <vector>

#include "editing/ScreenTexts.h"

namespace repvolta {
namespace {

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

}  // namespace
}  // namespace repvolta
