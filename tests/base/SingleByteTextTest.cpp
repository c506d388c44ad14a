#include <gtest/gtest.h>

#include "base/SingleByteText.h"
#include "base/Text.h"

namespace repvolta {
namespace {

std::string Field(std::string_view text, std::size_t size) {
  Bytes field(size, 0xEE);
  EncodeField(text, field);
  return AsText(field);
}

TEST(EncodeField, PadsWithBlanks) { EXPECT_EQ(Field("Squat", 8), "Squat   "); }

TEST(EncodeField, WritesWesternTextsInTheSingleByteCodePage) {
  EXPECT_EQ(Field("Café €", 8), "Caf\xE9 \x80  ");
}

TEST(EncodeField, WritesOtherTextsAsUtf8) { EXPECT_EQ(Field("走る", 8), "走る  "); }

TEST(EncodeField, WritesUtf8WhereTheSingleBytesCouldBeMistakenForIt) {
  EXPECT_EQ(Field("Ã©", 6), "Ã©  ");
}

TEST(EncodeField, CutsBetweenCharacters) {
  EXPECT_EQ(Field("走る", 5), "走  ");
  EXPECT_EQ(Field("Benchpress", 5), "Bench");
}

TEST(EncodeField, ChoosesByTheTextThatIsLeftAfterTheCut) {
  // The three bytes C3 A9 E9 are not UTF-8, but the first two alone are.
  EXPECT_EQ(DecodeField(AsBytes(Field("Ã©é", 2))), "Ã");
}

TEST(EncodeField, KeepsCharactersThatTheLibraryPassesOver) {
  const std::string text = "Caf\u00E9\U000E0041";
  EXPECT_EQ(DecodeField(AsBytes(Field(text, 16))), text);
}

TEST(DecodeField, TakesUtf8AsSuchAndOtherBytesAsTheCodePage) {
  EXPECT_EQ(DecodeField(AsBytes("走る  ")), "走る");
  EXPECT_EQ(DecodeField(AsBytes("Caf\xE9  ")), "Café");
}

TEST(DecodeField, KeepsLeadingBlanksAndZeroBytes) {
  EXPECT_EQ(DecodeField(AsBytes("  a ")), "  a");
  EXPECT_EQ(DecodeField(AsBytes(std::string_view("\0\0", 2))), std::string("\0\0", 2));
}

TEST(Field, GivesEverySingleByteTextBack) {
  std::string all;
  for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);
  const std::string text = FromWindows1252(all);

  EXPECT_EQ(DecodeField(AsBytes(Field(text, 256))), text);
  EXPECT_EQ(Field(text, 255), all);
}

TEST(CutToField, LeavesWhatFits) {
  EXPECT_EQ(CutToField("Bench Press", 25), "Bench Press");
  EXPECT_EQ(CutToField(std::string(300, 'x'), 256), std::string(256, 'x'));
  EXPECT_EQ(CutToField(std::string(256, 'x') + "é", 256), std::string(256, 'x'));
}

TEST(CutToField, CountsOneByteACharacterForWesternTexts) {
  std::string accents;
  for (int i = 0; i < 25; ++i) accents += "é";
  EXPECT_EQ(CutToField(accents, 25), accents);
}

TEST(ToWindows1252, PutsAQuestionMarkForWhatItLacks) {
  EXPECT_EQ(ToWindows1252("Café 走る"), "Caf\xE9 ??");
}

TEST(ToWindows1252, PutsAQuestionMarkForATagCharacter) {
  EXPECT_EQ(ToWindows1252("\u00E9\U000E0041!"), "\xE9?!");
}

TEST(ToWindows1252, LeavesBytesThatAreNoUtf8) { EXPECT_EQ(ToWindows1252("Caf\xE9"), "Caf\xE9"); }

TEST(AsUtf8, ReadsOtherBytesAsTheCodePage) {
  EXPECT_EQ(AsUtf8("Café"), "Café");
  EXPECT_EQ(AsUtf8("Caf\xE9"), "Café");
}

TEST(Utf8, IsRecognised) {
  EXPECT_TRUE(IsUtf8("a é 走 😀"));
  for (const char* bad :
       {"\x80", "\xC3", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82"})
    EXPECT_FALSE(IsUtf8(bad)) << testing::PrintToString(bad);
}

TEST(FoldCase, ComparesWithoutRegardToCase) {
  EXPECT_EQ(FoldCase("SET.WAV"), FoldCase("set.wav"));
  EXPECT_EQ(FoldCase("ÉCOLE"), FoldCase("école"));
  EXPECT_NE(FoldCase("\xE9"), FoldCase("é"));
}

}  // namespace
}  // namespace repvolta
