#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <stdexcept>

#include "base/Numbers.h"

namespace repvolta {
namespace {

TEST(LeadingNumber, TakesTheDecimalNumberAtTheStart) {
  EXPECT_EQ(LeadingNumber("12abc"), 12);
  EXPECT_EQ(LeadingNumber(" 7 "), 7);
  EXPECT_EQ(LeadingNumber("-5"), -5);
  EXPECT_EQ(LeadingNumber("+3"), 3);
  EXPECT_EQ(LeadingNumber("1e3"), 1000);
  EXPECT_EQ(LeadingNumber(".5"), 0.5);
  EXPECT_EQ(LeadingNumber("5."), 5);
  EXPECT_EQ(LeadingNumber("1e"), 1);
  EXPECT_EQ(LeadingNumber("0.5"), 0.5);
  EXPECT_EQ(LeadingNumber("9.0"), 9);
}

TEST(LeadingNumber, StopsAtADecimalComma) { EXPECT_EQ(LeadingNumber("1,5"), 1); }

TEST(LeadingNumber, IsZeroWhereNoDecimalNumberStarts) {
  for (const char* text :
       {"", "abc", "nan", "inf", "-inf", "infinity", "e5", ".", "-", "+-1", "- 5"})
    EXPECT_EQ(LeadingNumber(text), 0) << text;
  EXPECT_EQ(LeadingNumber("0x10"), 0);
}

TEST(LeadingNumber, IsInfiniteWhenTooLarge) {
  EXPECT_TRUE(std::isinf(LeadingNumber("1e400")));
  EXPECT_TRUE(std::isinf(LeadingNumber(std::string(500, '9'))));
  EXPECT_EQ(LeadingNumber("-1e400"), -std::numeric_limits<double>::infinity());
}

TEST(LeadingNumber, IsZeroWhenTooSmall) {
  EXPECT_EQ(LeadingNumber("1e-400"), 0);
  EXPECT_EQ(LeadingNumber("0." + std::string(500, '0') + "1"), 0);
}

TEST(LeadingNumber, WeighsDigitsAndExponentOfANumberThatDoesNotFit) {
  const std::string zeros(500, '0');
  EXPECT_EQ(LeadingNumber("0." + zeros + "1e5"), 0);
  EXPECT_TRUE(std::isinf(LeadingNumber("1" + zeros + "e-5")));
  EXPECT_TRUE(std::isinf(LeadingNumber("0.1" + zeros + "E+99999999999999999999")));
  EXPECT_EQ(LeadingNumber("1e-99999999999999999999"), 0);
}

TEST(ReadLeadingNumber, TellsHowMuchOfTheTextTheNumberTakes) {
  EXPECT_EQ(ReadLeadingNumber("57,5").length, 2U);
  EXPECT_EQ(ReadLeadingNumber("  -1.5e2 kg").length, 8U);
  EXPECT_EQ(ReadLeadingNumber("+7").length, 2U);
  EXPECT_EQ(ReadLeadingNumber("1e9999 ").length, 6U);
  EXPECT_EQ(ReadLeadingNumber("abc").length, 0U);
  EXPECT_EQ(ReadLeadingNumber("-").length, 0U);
  EXPECT_EQ(ReadLeadingNumber("").length, 0U);
}

TEST(NumberText, HasNoZeroBeforeThePoint) {
  EXPECT_EQ(NumberText(0.5F), ".5");
  EXPECT_EQ(NumberText(-0.25F), "-.25");
  EXPECT_EQ(NumberText(0.25F), ".25");
}

TEST(NumberText, HasNoTrailingZeros) {
  EXPECT_EQ(NumberText(2.50F), "2.5");
  EXPECT_EQ(NumberText(100.0F), "100");
  EXPECT_EQ(NumberText(-3.0F), "-3");
  EXPECT_EQ(NumberText(0.0F), "0");
  EXPECT_EQ(NumberText(-0.0F), "0");
}

TEST(NumberText, HasSevenSignificantDigits) {
  EXPECT_EQ(NumberText(62.3F), "62.3");
  EXPECT_EQ(NumberText(0.1F + 0.2F), ".3");
  EXPECT_EQ(NumberText(1234.5678F), "1234.568");
  EXPECT_EQ(NumberText(1234567.0F), "1234567");
}

TEST(NumberText, PrintsWholeNumbersInFull) {
  EXPECT_EQ(NumberText(std::int16_t{-32768}), "-32768");
  EXPECT_EQ(NumberText(std::int16_t{3}), "3");
}

TEST(ListNumberText, KeepsTheZeroBeforeThePoint) {
  EXPECT_EQ(ListNumberText(0.5F), "0.5");
  EXPECT_EQ(ListNumberText(-0.25F), "-0.25");
  EXPECT_EQ(ListNumberText(10.0F), "10");
}

TEST(StandardNumberText, HasABlankInPlaceOfTheSign) {
  EXPECT_EQ(StandardNumberText(5), " 5");
  EXPECT_EQ(StandardNumberText(0), " 0");
  EXPECT_EQ(StandardNumberText(-5), "-5");
}

TEST(FormatTime, GivesMinutesAndSecondsTwoDigitsEach) {
  EXPECT_EQ(FormatTime(0), "00:00");
  EXPECT_EQ(FormatTime(59), "00:59");
  EXPECT_EQ(FormatTime(320), "05:20");
  EXPECT_EQ(FormatTime(375), "06:15");
  EXPECT_EQ(FormatTime(32767), "546:07");
}

TEST(FormatTime, RoundsMinutesOfNegativeTimesDown) {
  EXPECT_EQ(FormatTime(-1), "-01:59");
  EXPECT_EQ(FormatTime(-60), "-01:00");
  EXPECT_EQ(FormatTime(-61), "-02:59");
}

TEST(RoundToInt16, RoundsHalvesToEven) {
  EXPECT_EQ(RoundToInt16(12.5), 12);
  EXPECT_EQ(RoundToInt16(13.5), 14);
  EXPECT_EQ(RoundToInt16(-0.5), 0);
  EXPECT_EQ(RoundToInt16(32767.4), 32767);
  EXPECT_EQ(RoundToInt16(-32768), -32768);
}

TEST(RoundToInt16, RefusesWhatDoesNotFit) {
  EXPECT_THROW(RoundToInt16(32767.5), std::overflow_error);
  EXPECT_THROW(RoundToInt16(-32769), std::overflow_error);
  EXPECT_THROW(RoundToInt16(std::nan("")), std::overflow_error);
}

TEST(CheckedInt16, RefusesWhatDoesNotFit) {
  EXPECT_EQ(CheckedInt16(-32768), -32768);
  EXPECT_EQ(CheckedInt16(32767), 32767);
  EXPECT_THROW(CheckedInt16(32768), std::overflow_error);
  EXPECT_THROW(CheckedInt16(-32769), std::overflow_error);
}

TEST(CheckedSingle, RefusesWhatIsTooLarge) {
  EXPECT_EQ(CheckedSingle(1.5), 1.5F);
  EXPECT_THROW(CheckedSingle(1e39), std::overflow_error);
}

TEST(AddSingles, RefusesASumThatIsTooLarge) {
  EXPECT_EQ(AddSingles(0.1F, 0.2F), 0.1F + 0.2F);
  EXPECT_THROW(AddSingles(3e38F, 3e38F), std::overflow_error);
}

TEST(AddSingles, KeepsWhatIsInfiniteAlready) {
  constexpr float kInfinite = std::numeric_limits<float>::infinity();
  EXPECT_EQ(AddSingles(kInfinite, 1), kInfinite);
  EXPECT_EQ(AddSingles(1, kInfinite), kInfinite);
}

}  // namespace
}  // namespace repvolta
