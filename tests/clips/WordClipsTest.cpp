#include <gtest/gtest.h>

#include "clips/ClipLists.h"
#include "clips/WordClips.h"

namespace repvolta {
namespace {

const std::string kData = REPVOLTA_DATA;

/// Without the names of exercises that the list has, too.
std::vector<ClipWords> WordsOfTheList() {
  std::vector<ClipWords> words = ReadWordList(kData + "clips.txt");
  std::erase_if(words, [](const ClipWords& clip) { return clip.file.starts_with("exercise/"); });
  return words;
}

TEST(WordClips, SayWhatTheListOfTheirRecordingSays) {
  for (const ClipWords& clip : WordsOfTheList()) EXPECT_EQ(WordsOfClip(clip.file), clip.words);
}

TEST(WordClips, AreThoseOfTheList) {
  std::vector<std::string> files;
  for (const ClipWords& clip : WordsOfTheList()) files.push_back(clip.file);
  EXPECT_EQ(WordClips(), files);
}

TEST(WordClips, AreNoOtherFiles) {
  EXPECT_EQ(WordsOfClip("21.wav"), "");
  EXPECT_EQ(WordsOfClip("300"), "");
  EXPECT_EQ(WordsOfClip("exercise/Squat.WAV"), "");
  EXPECT_EQ(WordsOfClip(""), "");
}

}  // namespace
}  // namespace repvolta
