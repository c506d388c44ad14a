#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/OptionLines.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr FlagOption kFlag{"flag", false};
constexpr NumberOption kNumber{"number", 5, 0, 100};
constexpr TextOption kText{"text", "default"};

TEST(OptionLines, AreKeysAndValues) {
  const OptionLines lines("first = 1\n  second=two words # and a sign \nempty =\n");
  EXPECT_EQ(lines.Value("first"), "1");
  EXPECT_EQ(lines.Value("second"), "two words # and a sign");
  EXPECT_EQ(lines.Value("empty"), "");
  EXPECT_EQ(lines.Value("third"), std::nullopt);
  EXPECT_THAT(lines.Keys(), ElementsAre("first", "second", "empty"));
}

TEST(OptionLines, CountFromTheLastOfAKey) {
  OptionLines lines("a = 1\nb = 2\na = 3\n");
  EXPECT_EQ(lines.Value("a"), "3");
  EXPECT_EQ(lines.LineNumber("a"), 3U);
  EXPECT_THAT(lines.Keys(), ElementsAre("a", "b"));
  lines.Set("a", "4");
  EXPECT_EQ(lines.File(), "a = 1\nb = 2\na = 4\n");
  lines.Remove("a");
  EXPECT_EQ(lines.File(), "b = 2\n");
}

TEST(OptionLines, StayAsTheyWereButForTheChangedOne) {
  const std::string file = "\n# Mine\nunknown=1\n\t flag  =yes\r\nno sign\n last = x";
  OptionLines lines(file);
  EXPECT_EQ(lines.File(), file);
  lines.Set("flag", "no");
  EXPECT_EQ(lines.File(), "\n# Mine\nunknown=1\nflag = no\r\nno sign\n last = x");
}

TEST(OptionLines, AreAppendedWithTheLineEndOfTheFile) {
  OptionLines none;
  none.Set("a", "1");
  EXPECT_EQ(none.File(), "a = 1\n");
  OptionLines plain("b = 2");
  plain.Set("a", "1");
  EXPECT_EQ(plain.File(), "b = 2\na = 1\n");
  OptionLines withReturn("b = 2\r\n");
  withReturn.Set("a", "1");
  EXPECT_EQ(withReturn.File(), "b = 2\r\na = 1\r\n");
}

TEST(OptionLines, MayBeginWithAByteOrderMark) {
  OptionLines lines(
      "\xEF\xBB\xBF"
      "a = 1\n");
  EXPECT_EQ(lines.Value("a"), "1");
  lines.Set("a", "2");
  EXPECT_EQ(lines.File(),
            "\xEF\xBB\xBF"
            "a = 2\n");
}

TEST(OptionLines, AreOddWithoutKeyOrSignOrWhereTheyAreNoPlainText) {
  const OptionLines lines(
      "a = 1\n= 2\njust words\ntwo words = 3\n\xFF = 4\nb = \xC3\nc = \x01\n# \xFF\n \t\n");
  std::vector<std::size_t> numbers;
  for (const auto& line : lines.OddLines()) numbers.push_back(line.number);
  EXPECT_THAT(numbers, ElementsAre(2, 3, 4, 5, 6, 7));
  EXPECT_EQ(lines.OddLines()[1].text, "just words");
  EXPECT_THAT(lines.Keys(), ElementsAre("a"));
}

TEST(OptionLines, OfAnyBytesComeBackAsTheyWere) {
  std::string file;
  for (int i = 0; i < 3000; ++i) file += static_cast<char>(i * i * 31 + i / 7);
  EXPECT_EQ(OptionLines(file).File(), file);
}

TEST(MergedOptions, TakeOverWhatOneOfThemChanged) {
  const OptionLines base("a = 1\nb = 1\nc = 1\n");
  OptionLines ours = base;
  ours.Set("a", "ours");
  ours.Set("new", "ours");
  ours.Remove("c");
  const OptionLines theirs("# theirs\na = 1\nb = theirs\nc = 1\nother = theirs\n");
  EXPECT_EQ(MergeOptions(base, ours, theirs).File(),
            "# theirs\na = ours\nb = theirs\nother = theirs\nnew = ours\n");
}

TEST(MergedOptions, AreOursWhereBothChangedOne) {
  const OptionLines merged =
      MergeOptions(OptionLines("a = 1\n"), OptionLines("a = 2\n"), OptionLines("a = 3\n"));
  EXPECT_EQ(merged.File(), "a = 2\n");
}

TEST(MergedOptions, LeaveLinesThatAgreeAsTheyAre) {
  const OptionLines merged =
      MergeOptions(OptionLines("a = 1\n"), OptionLines("a = 2\n"), OptionLines("a=2 \n"));
  EXPECT_EQ(merged.File(), "a=2 \n");
}

TEST(MergedOptions, DropWhatTheyDropped) {
  const OptionLines base("a = 1\nb = 1\n");
  EXPECT_EQ(MergeOptions(base, base, OptionLines("b = 1\n")).File(), "b = 1\n");
}

TEST(FlagOptions, AreReadInManyWords) {
  for (const char* yes : {"yes", "Yes", "TRUE", "on", "1"}) {
    EXPECT_TRUE(Get(OptionLines(std::string("flag = ") + yes), kFlag)) << yes;
  }
  constexpr FlagOption kTicked{"flag", true};
  for (const char* no : {"no", "False", "off", "0"}) {
    EXPECT_FALSE(Get(OptionLines(std::string("flag = ") + no), kTicked)) << no;
  }
}

TEST(FlagOptions, HaveTheirDefaultWithoutAValueOrWithAnOddOne) {
  for (const char* file : {"", "flag =", "flag = perhaps", "other = yes"}) {
    EXPECT_FALSE(Get(OptionLines(file), kFlag)) << file;
    EXPECT_TRUE(Get(OptionLines(file), FlagOption{"flag", true})) << file;
  }
  EXPECT_TRUE(IsUnderstood(OptionLines(), kFlag));
  EXPECT_FALSE(IsUnderstood(OptionLines("flag = perhaps"), kFlag));
}

TEST(FlagOptions, AreWrittenAsYesAndNo) {
  OptionLines lines;
  Put(lines, kFlag, true);
  EXPECT_EQ(lines.File(), "flag = yes\n");
  Put(lines, kFlag, false);
  EXPECT_EQ(lines.File(), "flag = no\n");
}

TEST(NumberOptions, AreWholeNumbersWithinTheirLimits) {
  EXPECT_EQ(Get(OptionLines("number = 100"), kNumber), 100);
  for (const char* odd : {"number = 101", "number = -1", "number = 1.5", "number = ten",
                          "number = 99999999999999999999", "number ="}) {
    EXPECT_EQ(Get(OptionLines(odd), kNumber), 5) << odd;
    EXPECT_FALSE(IsUnderstood(OptionLines(odd), kNumber)) << odd;
  }
  EXPECT_EQ(Get(OptionLines(), kNumber), 5);
  EXPECT_TRUE(IsUnderstood(OptionLines(), kNumber));
}

TEST(NumberOptions, ComeBackAsTheyWere) {
  OptionLines lines;
  Put(lines, kNumber, 42);
  EXPECT_EQ(lines.File(), "number = 42\n");
  EXPECT_EQ(Get(lines, kNumber), 42);
}

TEST(TextOptions, ComeBackAsTheyWere) {
  for (const std::string text : {"", "plain", "/media/kim/My Player", "100%", "%41", " blanks ",
                                 "two\nlines", "Übung", "\xFF\xC3 bytes", "tab\t", " ", "\x7F"}) {
    OptionLines lines;
    Put(lines, kText, text);
    EXPECT_THAT(lines.OddLines(), IsEmpty()) << lines.File();
    EXPECT_EQ(Get(OptionLines(lines.File()), kText), text) << lines.File();
  }
}

TEST(TextOptions, StandInTheFileAsPlainlyAsPossible) {
  OptionLines lines;
  Put(lines, kText, "/Müsli/50% off");
  EXPECT_EQ(lines.File(), "text = /Müsli/50%25 off\n");
}

TEST(TextOptions, TakeASignThatAPersonTyped) {
  EXPECT_EQ(Get(OptionLines("text = 100% %zz %4"), kText), "100% %zz %4");
  EXPECT_EQ(Get(OptionLines(), kText), "default");
}

}  // namespace
}  // namespace repvolta
