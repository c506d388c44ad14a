#include <gtest/gtest.h>

#include "base/FileError.h"
#include "clips/ClipLists.h"

#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

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

}  // namespace
}  // namespace repvolta
