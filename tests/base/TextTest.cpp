#include <gtest/gtest.h>

#include "base/Text.h"

namespace repvolta {
namespace {

TEST(CutUtf8, EndsBetweenCharacters) {
  EXPECT_EQ(CutUtf8("a走る", 7), "a走る");
  EXPECT_EQ(CutUtf8("a走る", 6), "a走");
  EXPECT_EQ(CutUtf8("a走る", 4), "a走");
  EXPECT_EQ(CutUtf8("a走る", 3), "a");
  EXPECT_EQ(CutUtf8("走る", 2), "");
  EXPECT_EQ(CutUtf8("a😀", 4), "a");
  EXPECT_EQ(CutUtf8("a😀", 0), "");
}

TEST(CutUtf8, KeepsBytesThatAreNoText) {
  const std::string bytes(9, '\x80');
  EXPECT_EQ(CutUtf8(bytes, 8).size(), 4U);
}

TEST(CutToColumns, EndsBetweenCharactersThatFit) {
  EXPECT_EQ(CutToColumns("Café", 9), "Café");
  EXPECT_EQ(CutToColumns("Café", 4), "Café");
  EXPECT_EQ(CutToColumns("Café", 3), "Caf");
  EXPECT_EQ(CutToColumns("Café", 0), "");
}

TEST(CutToColumns, CountsWideCharactersTwice) {
  EXPECT_EQ(CutToColumns("a走る", 5), "a走る");
  EXPECT_EQ(CutToColumns("a走る", 4), "a走");
  EXPECT_EQ(CutToColumns("走る", 1), "");
}

TEST(CutToColumns, KeepsAnAccentWithItsLetter) {
  EXPECT_EQ(CutToColumns("e\u0301x", 1), "e\u0301");
}

TEST(CutToColumns, ShowsWhatIsNoTextAsQuestionMarks) {
  EXPECT_EQ(CutToColumns("a\xFF\x1B[2J", 4), "a??[");
}

TEST(TrimBlanks, TakesBlanksOnlyAndFromBothEnds) {
  EXPECT_EQ(TrimBlanks("  a b \t "), "a b \t");
  EXPECT_EQ(TrimBlanks("   "), "");
  EXPECT_EQ(TrimTrailingBlanks("  a  "), "  a");
}

TEST(Utf8, IsRecognisedUpToTheEdgesOfEachLength) {
  for (const char* good : {"\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF",
                           "\xEE\x80\x80", "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"})
    EXPECT_TRUE(IsUtf8(good)) << testing::PrintToString(good);
  for (const char* bad :
       {"\xBF", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xED\xBF\xBF", "\xF0\x8F\xBF\xBF",
        "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xC2\xC0", "\xC2\x7F"})
    EXPECT_FALSE(IsUtf8(bad)) << testing::PrintToString(bad);
}

TEST(FoldCase, HasACharacterForEachOfTheText) {
  EXPECT_EQ(FoldCase("\u00C9\u8D70\U0001F600z"), U"\u00E9\u8D70\U0001F600z");
  EXPECT_EQ(FoldCase("\x80\x81").size(), 2U);
  EXPECT_NE(FoldCase("\x80"), FoldCase("\x81"));
}

TEST(FoldCaseFully, TakesLettersWithOneCapitalAsOne) {
  EXPECT_EQ(FoldCaseFully("σ\u00B5ſ"), FoldCaseFully("ς\u03BCs"));
  EXPECT_EQ(FoldCaseFully("Éa\x80"), FoldCaseFully("éA\x80"));
  EXPECT_NE(FoldCaseFully("a"), FoldCaseFully("b"));
}

TEST(ShownOnOneLine, KeepsWhatIsNoControlCharacter) {
  EXPECT_EQ(ShownOnOneLine("Développé 走る ~ \xFF\xC2\xA0"), "Développé 走る ~ \xFF\xC2\xA0");
}

TEST(ShownOnOneLine, HasAQuestionMarkForEachControlCharacter) {
  EXPECT_EQ(ShownOnOneLine("a\nb\r\tc\x1B[2J\x7F"), "a?b??c?[2J?");
  EXPECT_EQ(ShownOnOneLine(std::string("\0x\x1F", 3)), "?x?");
}

TEST(ShownOnOneLine, TakesControlCharactersOfTwoBytesAsOne) {
  EXPECT_EQ(ShownOnOneLine("a\xC2\x9B"
                           "2J\xC2\x80\xC2"),
            "a?2J?\xC2");
  EXPECT_EQ(ShownOnOneLine("\xC2\x9F!"), "?!");
  EXPECT_EQ(ShownOnOneLine("\xC2"
                           "A"),
            "\xC2"
            "A");
}

TEST(Counted, SaysOneAndSeveral) {
  EXPECT_EQ(Counted(1, "clip"), "1 clip");
  EXPECT_EQ(Counted(0, "clip"), "0 clips");
  EXPECT_EQ(Counted(2, "clip is", "clips are"), "2 clips are");
}

}  // namespace
}  // namespace repvolta
