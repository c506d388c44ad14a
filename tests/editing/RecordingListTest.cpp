#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "clips/ClipLists.h"
#include "clips/WordClips.h"
#include "editing/RecordingList.h"

#include "support/ProgramFixture.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

std::vector<std::string> FilesOf(const std::vector<WordToRecord>& list) {
  std::vector<std::string> files;
  files.reserve(list.size());
  for (const WordToRecord& word : list) files.push_back(word.file);
  return files;
}

class RecordingListTest : public ProgramFixture {
 protected:
  RecordingListTest() { std::filesystem::create_directories("voice/exercise"); }

  std::vector<WordToRecord> List(const RecordingWish& wish) {
    return ListToRecord(wish, state, [this](const std::string& file) { return own == file; });
  }

  std::string own;  // the clip that the person has recorded
};

TEST_F(RecordingListTest, AsksForAllWordsInTheirOrder) {
  const std::vector<WordToRecord> list = List({});
  EXPECT_EQ(FilesOf(list), WordClips());
  EXPECT_THAT(list, Contains(WordToRecord{"300.wav", "three hundred"}));
}

TEST_F(RecordingListTest, LeavesOutWhatIsRecordedAlready) {
  own = "300.wav";
  EXPECT_THAT(FilesOf(List({})), Not(Contains("300.wav")));
  EXPECT_EQ(FilesOf(List({.own = OwnRecordings::kInclude, .wordList = {}, .chosen = {}})),
            WordClips());
}

TEST_F(RecordingListTest, AsksForTheNamesOfTheWorkoutEachOnce) {
  AddExercise("Squat ");
  AddExercise("A/B");
  AddExercise("squat");
  AddExercise("");
  EXPECT_THAT(List({.what = WhatToRecord::kWorkoutNames, .wordList = {}, .chosen = {}}),
              ElementsAre(WordToRecord{"exercise/Squat.WAV", "Squat"},
                          WordToRecord{"exercise/A_B.WAV", "A/B"}));
}

TEST_F(RecordingListTest, RecordsANameIntoTheClipThatAnUpdateUses) {
  AddExercise("Squat");
  PutFile("voice/exercise/SQUAT.wav", "");
  EXPECT_THAT(FilesOf(List({.what = WhatToRecord::kWorkoutNames, .wordList = {}, .chosen = {}})),
              ElementsAre("exercise/SQUAT.wav"));
}

TEST_F(RecordingListTest, MissingAreTheWordsAndNamesOfTheWorkoutThatHaveNoClip) {
  for (const std::string& file : WordClips()) PutFile("voice/" + file, "");
  std::filesystem::remove("voice/point.wav");
  AddExercise("Squat");
  AddExercise("Row");
  PutFile("voice/exercise/Row.WAV", "");
  EXPECT_THAT(FilesOf(List({.what = WhatToRecord::kMissing, .wordList = {}, .chosen = {}})),
              ElementsAre("point.wav", "exercise/Squat.WAV"));
}

TEST_F(RecordingListTest, TakesTheWordsOfAnotherLanguage) {
  PutFile("deutsch.txt", "1\tein\nsets\tSätze\nand\t-\nexercise/Squat\tKniebeuge\n");
  const RecordingWish wish{.what = WhatToRecord::kChosen,
                           .wordList = "deutsch.txt",
                           .chosen = {"sets.wav", "and.wav", "exercise/Squat.WAV", "2.wav"}};
  EXPECT_THAT(
      List(wish),
      ElementsAre(WordToRecord{"sets.wav", "Sätze"}, WordToRecord{"and.wav", ""},
                  WordToRecord{"exercise/Squat.WAV", "Kniebeuge"}, WordToRecord{"2.wav", "two"}));
}

TEST_F(RecordingListTest, AsksForAChosenNameByTheNameOfItsClip) {
  EXPECT_THAT(List({.what = WhatToRecord::kChosen,
                    .wordList = {},
                    .chosen = {"exercise/Bench Press.WAV", "kph.wav"}}),
              ElementsAre(WordToRecord{"exercise/Bench Press.WAV", "Bench Press"},
                          WordToRecord{"kph.wav", "kilometers per hour"}));
}

TEST_F(RecordingListTest, TellsWhatIsWrongWithAWordList) {
  PutFile("words.txt", "sets\n");
  EXPECT_THROW(List({.wordList = "words.txt", .chosen = {}}), ClipError);
}

TEST_F(RecordingListTest, OffersEnglishAndTheWordListsThatThereAre) {
  for (const char* list : {"spanish.txt", "english.txt", "german.txt", "notes.md"}) {
    PutFile(std::string("words/") + list, "");
  }
  EXPECT_THAT(
      RecordingLanguages("words/"),
      ElementsAre(RecordingLanguage{"English", ""}, RecordingLanguage{"German", "words/german.txt"},
                  RecordingLanguage{"Spanish", "words/spanish.txt"}));
}

TEST_F(RecordingListTest, OffersEnglishWithoutWordLists) {
  EXPECT_THAT(RecordingLanguages(""), ElementsAre(RecordingLanguage{"English", ""}));
  EXPECT_THAT(RecordingLanguages("none/"), ElementsAre(RecordingLanguage{"English", ""}));
}

}  // namespace
}  // namespace repvolta
