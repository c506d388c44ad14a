#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>

#include "base/FileError.h"
#include "base/Text.h"
#include "clips/ClipLists.h"
#include "clips/WordClips.h"

#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::StartsWith;

std::string Read(std::vector<ClipWords> (*read)(const std::string&), std::string_view content) {
  TemporaryFolder folder;
  PutFile("list", content);
  std::string result;
  for (const ClipWords& clip : read("list")) result += clip.file + "=" + clip.words + ";";
  return result;
}

TEST(ReadWordList, TakesTheNameAndTheWords) {
  EXPECT_EQ(Read(ReadWordList, "300 three hundred\nfor   for\n"),
            "300.wav=three hundred;for.wav=for;");
}

TEST(ReadWordList, PassesOverCommentsAndEmptyLines) {
  EXPECT_EQ(Read(ReadWordList, "# numbers\r\n\r\n1 one\r\n  \n"), "1.wav=one;");
}

TEST(ReadWordList, RefusesALineWithoutWords) {
  TemporaryFolder folder;
  PutFile("list", "1 one\nset\n");
  try {
    ReadWordList("list");
    FAIL() << "accepted";
  } catch (const ClipError& error) {
    EXPECT_STREQ(error.what(), "list, line 2: expected a clip's name and the words that it says");
  }
}

TEST(ReadWordList, RefusesANameThatLeavesTheFolder) {
  EXPECT_THROW(Read(ReadWordList, "../evil words\n"), ClipError);
}

TEST(ReadWordList, PartsALineAtItsTab) {
  EXPECT_EQ(Read(ReadWordList, "kilograms\tKilogramm\nkph \t Kilometer pro Stunde\n"),
            "kilograms.wav=Kilogramm;kph.wav=Kilometer pro Stunde;");
}

TEST(ReadWordList, TakesTheNameOfAnExerciseAlso) {
  EXPECT_EQ(Read(ReadWordList,
                 "exercise/Bench Press\tBankdr\xC3\xBC"
                 "cken\nexercise/ Push/Up \tx\n"),
            "exercise/Bench Press.WAV=Bankdrücken;exercise/Push_Up.WAV=x;");
  EXPECT_THROW(Read(ReadWordList, "exercise/\twords\n"), ClipError);
}

TEST(ReadWordList, TakesADashForNothing) {
  EXPECT_EQ(Read(ReadWordList, "and\t-\npoint -\n"), "and.wav=;point.wav=;");
}

TEST(ReadWordList, PassesOverTheMarkOfUtf8) {
  EXPECT_EQ(Read(ReadWordList,
                 "\xEF\xBB\xBF"
                 "1\teins\n"),
            "1.wav=eins;");
}

TEST(ReadWordList, SaysWhichFileIsMissing) {
  EXPECT_THROW(ReadWordList("no such list"), FileError);
}

TEST(ReadNameList, NamesTheClipAfterTheExercise) {
  EXPECT_EQ(Read(ReadNameList, " Bench Press \n\nPush Up\r\nT-Bar Row"),
            "exercise/Bench Press.WAV=Bench Press;exercise/Push Up.WAV=Push Up;"
            "exercise/T-Bar Row.WAV=T-Bar Row;");
}

TEST(ReadNameList, ReadsALongList) {
  TemporaryFolder folder;
  std::string names;
  for (int i = 0; i < 20000; ++i) names += "Exercise " + std::to_string(i) + "\n";
  PutFile("list", names);
  const std::vector<ClipWords> clips = ReadNameList("list");
  ASSERT_EQ(clips.size(), 20000U);
  EXPECT_EQ(clips.back().words, "Exercise 19999");
}

TEST(ReadNameList, ReplacesWhatNoFileNameHas) {
  EXPECT_EQ(Read(ReadNameList, "Push/Pull\n"), "exercise/Push_Pull.WAV=Push/Pull;");
}

TEST(ReadNameList, ReadsBothKindsOfLetters) {
  EXPECT_EQ(Read(ReadNameList, "Caf\xC3\xA9\n"), "exercise/Café.WAV=Café;");
  EXPECT_EQ(Read(ReadNameList, "Caf\xE9\n"), "exercise/Café.WAV=Café;");
}

/// A list that says all words but that of the file `leftOut`.
std::string WholeListWithout(const std::string& leftOut) {
  std::string list;
  for (const std::string& file : WordClips()) {
    if (file != leftOut) list += file.substr(0, file.size() - 4) + "\tword\n";
  }
  return list;
}

std::vector<std::string> Remarks(const std::string& list) {
  TemporaryFolder folder;
  PutFile("list", list);
  return RemarksOn(ReadWordList("list"), "list");
}

TEST(RemarksOnAWordList, AreNoneWhenItSaysAllThatTheProgramSays) {
  EXPECT_THAT(Remarks(WholeListWithout("")), IsEmpty());
  EXPECT_THAT(Remarks(WholeListWithout("") + "exercise/Bench Press\tBankdrücken\n"), IsEmpty());
}

TEST(RemarksOnAWordList, NameWhatIsMissing) {
  EXPECT_THAT(Remarks(WholeListWithout("point.wav")), ElementsAre("list has no words for point"));
  EXPECT_THAT(Remarks("1 one\n"),
              ElementsAre(AllOf(StartsWith("list has no words for 2, 3, 4, "),
                                EndsWith("9000, and, point, set, sets, pounds, kilograms, for, "
                                         "reps, level, minutes, kph, mph, kilometers, miles"))));
}

TEST(RemarksOnAWordList, NameTheLineOfAClipThatIsNeverSaid) {
  EXPECT_THAT(Remarks("# all\n" + WholeListWithout("") + "kilogram\tKilogramm\n"),
              ElementsAre("list, line 61: \"kilogram\" is said by no exercise"));
}

TEST(RemarksOnAWordList, NameTheLineOfAClipThatIsThereTwice) {
  EXPECT_THAT(Remarks(WholeListWithout("") + "set\tSatz\n"),
              ElementsAre("list, line 60: \"set\" is there twice, this one counts"));
}

/// The lists that come with the program.
class ShippedWordList : public testing::TestWithParam<const char*> {
 protected:
  static std::string Path() { return REPVOLTA_DATA + std::string(GetParam()); }
};

TEST_P(ShippedWordList, HasAllWordsOfTheProgramInOrder) {
  std::vector<std::string> files;
  for (const ClipWords& clip : ReadWordList(Path())) {
    if (!clip.file.starts_with("exercise/")) files.push_back(clip.file);
  }
  EXPECT_EQ(files, WordClips());
}

TEST_P(ShippedWordList, SaysOtherWordsForOtherNumbers) {
  std::set<std::string> numbers;
  const std::vector<ClipWords> clips = ReadWordList(Path());
  for (std::size_t i = 0; i < 45; ++i) {
    EXPECT_TRUE(numbers.insert(clips[i].words).second) << clips[i].words;
  }
}

TEST_P(ShippedWordList, IsUtf8) { EXPECT_TRUE(IsUtf8(GetTextFile(Path()))); }

INSTANTIATE_TEST_SUITE_P(OfEachLanguage, ShippedWordList,
                         testing::Values("clips.txt", "words/german.txt", "words/french.txt",
                                         "words/spanish.txt"));

}  // namespace
}  // namespace repvolta
