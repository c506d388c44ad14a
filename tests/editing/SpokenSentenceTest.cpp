#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/FileError.h"
#include "editing/SpokenSentence.h"
#include "instruction/VoiceInstruction.h"

#include "support/ClipBytes.h"
#include "support/ProgramFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

SayableClip Word(const std::string& name, const std::string& words) {
  return {{Clip::Kind::kWord, name}, words};
}

SayableClip Name(const std::string& name) { return {{Clip::Kind::kName, name}, name}; }

std::vector<SayableClip> Sayable() {
  std::vector<SayableClip> all = {Word("1", "one"),
                                  Word("2", "two"),
                                  Word("3", "three"),
                                  Word("5", "five"),
                                  Word("10", "ten"),
                                  Word("50", "fifty"),
                                  Word("100", "one hundred"),
                                  Word("1000", "one thousand"),
                                  Word("and", "and"),
                                  Word("point", "point"),
                                  Word("sets", "sets"),
                                  Word("for", "for"),
                                  Word("reps", "reps"),
                                  Word("kilograms", "kilograms"),
                                  Word("kilometers", "kilometers"),
                                  Word("kph", "kilometers per hour"),
                                  Word("kph", "kph")};
  for (const char* name :
       {"Press", "Bench Press", "Push-Up", "Row (Seated), wide", "30 Degree Fly", "Übung 2"}) {
    all.push_back(Name(name));
  }
  return all;
}

/// The clips as their texts; what is unsaid stands behind them in brackets.
std::vector<std::string> Read(std::string_view sentence) {
  const SpokenSentence read = ClipsOfSentence(sentence, Sayable());
  std::vector<std::string> texts;
  for (const Clip& clip : read.clips) {
    texts.push_back((clip.kind == Clip::Kind::kName ? "name " : "") + clip.text);
  }
  for (const std::string& word : read.unsaid) texts.push_back("[" + word + "]");
  return texts;
}

TEST(SpokenSentence, IsReadWordByWord) {
  EXPECT_THAT(Read("three sets, fifty kilograms for ten reps"),
              ElementsAre("3", "sets", "50", "kilograms", "for", "10", "reps"));
}

TEST(SpokenSentence, SaysFiguresAsTheUpdateDoes) {
  EXPECT_THAT(Read("52.5 kilograms"), ElementsAre("50", "2", "point", "5", "kilograms"));
  EXPECT_THAT(Read("1151"), ElementsAre("1000", "100", "and", "50", "1"));
  EXPECT_THAT(Read(".5"), ElementsAre("point", "5"));
}

TEST(SpokenSentence, TakesCommasInFigures) {
  EXPECT_THAT(Read("52,5"), ElementsAre("50", "2", "point", "5"));
  EXPECT_THAT(Read("1,100.5"), ElementsAre("1000", "100", "point", "5"));
  EXPECT_THAT(Read("3 sets,10 reps,"), ElementsAre("3", "sets", "10", "reps"));
  EXPECT_THAT(Read("3, 5;10"), ElementsAre("3", "5", "10"));
}

TEST(SpokenSentence, KnowsNamesWithoutRegardToCaseAndPunctuation) {
  EXPECT_THAT(Read("bench PRESS, 3 sets."), ElementsAre("name Bench Press", "3", "sets"));
  EXPECT_THAT(Read("push up"), ElementsAre("name Push-Up"));
  EXPECT_THAT(Read("row seated wide"), ElementsAre("name Row (Seated), wide"));
  EXPECT_THAT(Read("üBUNG 2"), ElementsAre("name Übung 2"));
}

TEST(SpokenSentence, TakesTheLongestClip) {
  EXPECT_THAT(Read("press bench press"), ElementsAre("name Press", "name Bench Press"));
  EXPECT_THAT(Read("ten kilometers per hour"), ElementsAre("10", "kph"));
  EXPECT_THAT(Read("ten kilometers per set"), ElementsAre("10", "kilometers", "[per]", "[set]"));
  EXPECT_THAT(Read("one hundred and one"), ElementsAre("100", "and", "1"));
  EXPECT_THAT(Read("30 degree fly"), ElementsAre("name 30 Degree Fly"));
}

TEST(SpokenSentence, TakesHyphensBetweenNumberWords) {
  EXPECT_THAT(Read("fifty-two kph"), ElementsAre("50", "2", "kph"));
}

TEST(SpokenSentence, NamesWhatThereIsNoClipFor) {
  EXPECT_THAT(Read("Three quick sets of 7, please"),
              ElementsAre("3", "sets", "[quick]", "[of]", "[7]", "[please]"));
}

TEST(SpokenSentence, SaysNoNumberThatAnUpdateCouldNotSay) {
  EXPECT_THAT(Read("0 10000 -5 5e1 1.2.3 52.5kg 0x10"),
              ElementsAre("[0]", "[10000]", "[-5]", "[5e1]", "[1.2.3]", "[52.5kg]", "[0x10]"));
  EXPECT_THAT(Read("99999999999999999999999999999999999999999999"), testing::SizeIs(1));
}

TEST(SpokenSentence, CanBeEmpty) {
  EXPECT_THAT(Read(""), IsEmpty());
  EXPECT_THAT(Read(" \t, . - ;; \n"), IsEmpty());
}

TEST(SpokenSentence, TakesAnyBytes) {
  EXPECT_THAT(Read("\xFF\xFE three"), ElementsAre("3", "[\xFF\xFE]"));
}

TEST(SpokenSentence, HasNoClipsWithoutAVoice) {
  EXPECT_EQ(ClipsOfSentence("one 1", {}), (SpokenSentence{.clips = {}, .unsaid = {"one", "1"}}));
}

/// Clips of which each has samples of its own.
class JoinedSentence : public ProgramFixture {
 protected:
  JoinedSentence() {
    Byte number = 1;
    for (const char* clip : {"3", "sets", "50", "kilograms", "for", "10", "reps"}) {
      PutFile("voice/" + std::string(clip) + ".wav", ClipBytes({number, number}));
      ++number;
    }
    PutFile("voice/exercise/Press.WAV", ClipBytes({0xFE, 0xFE}));
  }

  Bytes Join(std::string_view sentence) {
    JoinSentence(ClipsOfSentence(sentence, Sayable()).clips, "joined.wav", run);
    return GetFile("joined.wav");
  }
};

TEST_F(JoinedSentence, IsTheInstructionOfAnUpdate) {
  state.Settings.IncludeWeightValues = kTrue;
  ExerciseRecord& exercise = AddExercise("Press");
  for (int i = 0; i < 3; ++i) AddSet(exercise, 50, 10);
  GenerateHumanVoiceInstruction(state, 0, "expected.wav", speech, run);
  EXPECT_EQ(Join("Press, three sets, fifty kilograms for ten reps, 50 kilograms for 10 reps, 50 "
                 "kilograms for 10 reps"),
            GetFile("expected.wav"));
  EXPECT_THAT(run.log, IsEmpty());
}

TEST_F(JoinedSentence, BeginsWithAnyClip) {
  EXPECT_EQ(Join("sets"), GetFile("voice/sets.wav"));
  EXPECT_EQ(Join("three sets").size(), 46U + 4);
}

TEST_F(JoinedSentence, TellsWhatIsMissing) {
  std::filesystem::remove("voice/sets.wav");
  EXPECT_EQ(Join("three sets reps"), Join("three reps"));
  EXPECT_THAT(run.log, ElementsAre(HasSubstr("voice/sets.wav NOT FOUND")));
}

TEST_F(JoinedSentence, NeedsItsFirstClip) {
  std::filesystem::remove("voice/sets.wav");
  EXPECT_THROW(Join("sets"), FileError);
}

}  // namespace
}  // namespace repvolta
