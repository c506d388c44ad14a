#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

#include "instruction/VoiceInstruction.h"

#include "support/ClipBytes.h"
#include "support/ProgramFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const char* const kClips[] = {"1",   "2",    "5",   "8",    "10",        "50",    "60",
                              "set", "sets", "for", "reps", "kilograms", "level", "minutes"};

/// The samples of each clip are its own number, so that a joined file shows its clips.
class VoiceInstruction : public ProgramFixture {
 protected:
  VoiceInstruction() {
    Byte number = 1;
    for (const char* clip : kClips) {
      PutFile("voice/" + std::string(clip) + ".wav", ClipBytes({number, number}));
      ++number;
    }
    PutFile("voice/exercise/Squat.WAV", ClipBytes({0xFE, 0xFE}));
    state.Settings.IncludeWeightValues = kTrue;
  }

  /// The clips in "temp.wav". The last byte of each, except for the last clip, was replaced by the
  /// next.
  std::vector<std::string> Clips() {
    const Bytes file = GetFile("temp.wav");
    std::vector<std::string> clips;
    for (std::size_t at = 46; at < file.size(); at += 2) {
      clips.emplace_back(file[at] == 0xFE ? "name" : kClips[file[at] - 1]);
    }
    return clips;
  }

  std::vector<std::string> Speak() {
    GenerateHumanVoiceInstruction(state, 0, "temp.wav", speech, run);
    return Clips();
  }
};

TEST_F(VoiceInstruction, JoinsTheClipsOfItsWords) {
  ExerciseRecord& exercise = AddExercise("Squat");
  AddSet(exercise, 50, 10);
  AddSet(exercise, 60, 8);

  EXPECT_THAT(Speak(), ElementsAre("name", "2", "sets", "50", "kilograms", "for", "10", "reps",
                                   "60", "kilograms", "for", "8", "reps"));
  EXPECT_THAT(run.log, IsEmpty());
}

TEST_F(VoiceInstruction, SaysNoValuesWhenTheSettingIsOff) {
  AddSet(AddExercise("Squat"), 50, 10);
  state.Settings.IncludeWeightValues = kFalse;
  EXPECT_THAT(Speak(), ElementsAre("name", "1", "set"));
}

TEST_F(VoiceInstruction, TakesOnlyTrueForTheSetting) {
  AddSet(AddExercise("Squat"), 50, 10);
  state.Settings.IncludeWeightValues = 1;
  EXPECT_THAT(Speak(), ElementsAre("name", "1", "set"));
}

TEST_F(VoiceInstruction, NeedsNoClipForZero) {
  AddExercise("Squat");
  EXPECT_THAT(Speak(), ElementsAre("name", "sets"));
}

TEST_F(VoiceInstruction, LeavesTheValuesOfTheRecord) {
  ExerciseRecord& exercise = AddExercise("Squat");
  AddSet(exercise, 50.5F, 10);
  Speak();
  EXPECT_EQ(exercise.SetValue1[0], 50.5F);
  EXPECT_EQ(exercise.SetValue2[0], 10);
}

TEST_F(VoiceInstruction, ReplacesWhatTheTargetHeld) {
  AddExercise("Squat");
  PutFile("temp.wav", ClipBytes(Bytes(1000, 'x')));
  EXPECT_THAT(Speak(), ElementsAre("name", "sets"));
}

TEST_F(VoiceInstruction, HasAMissingNameSpokenOnceAndKept) {
  AddExercise(" Goblet Squat ");

  GenerateHumanVoiceInstruction(state, 0, "temp.wav", speech, run);
  GenerateHumanVoiceInstruction(state, 0, "temp.wav", speech, run);

  EXPECT_THAT(run.log, ElementsAre("WARNING: Exercise Instruction file NOT FOUND - "
                                   "voice/exercise/Goblet Squat.WAV    Computer voice file "
                                   "created."));
  ASSERT_EQ(speech.requests.size(), 1U);
  EXPECT_EQ(speech.requests[0].text, "Goblet Squat");
  EXPECT_EQ(speech.requests[0].file, "voice/exercise/Goblet Squat.WAV");
  EXPECT_EQ(GetFile("voice/exercise/Goblet Squat.WAV"), ClipBytes(Bytes(100, 's')));
}

TEST_F(VoiceInstruction, SpeaksWithTheVoiceThatIsSetUp) {
  state.Voice = {.Voice = 1, .Rate = -3, .Volume = 80, .Format = 35};
  SpeakToFile(state.Voice, speech, "Squat", "out.wav");
  EXPECT_EQ(speech.requests[0].voice, 1);
  EXPECT_EQ(speech.requests[0].rate, -3);
  EXPECT_EQ(speech.requests[0].volume, 80);
  EXPECT_EQ(speech.requests[0].format, 35);
}

TEST_F(VoiceInstruction, FindsANameClipOfAnotherCase) {
  AddExercise("SQUAT");
  EXPECT_THAT(Speak(), ElementsAre("name", "sets"));
  EXPECT_THAT(speech.requests, IsEmpty());
}

TEST_F(VoiceInstruction, KeepsTheClipOfAHostileNameInItsFolder) {
  AddExercise("../../Clean/Jerk");
  GenerateHumanVoiceInstruction(state, 0, "temp.wav", speech, run);
  EXPECT_EQ(speech.requests[0].text, "../../Clean/Jerk");
  EXPECT_EQ(speech.requests[0].file, "voice/exercise/.._.._Clean_Jerk.WAV");
}

TEST_F(VoiceInstruction, LeavesNoInstructionOfAnotherExerciseWhenSpeechFails) {
  AddExercise("Unheard of");
  PutFile("temp.wav", ClipBytes(Bytes(1000, 'x')));
  speech.fails = true;

  EXPECT_THROW(GenerateHumanVoiceInstruction(state, 0, "temp.wav", speech, run), SpeechError);

  EXPECT_FALSE(std::filesystem::exists("temp.wav"));
  EXPECT_THAT(run.log, IsEmpty());
}

TEST_F(VoiceInstruction, MakesTheFolderOfNameClips) {
  std::filesystem::remove_all("voice/exercise");
  AddExercise("Squat");
  GenerateHumanVoiceInstruction(state, 0, "temp.wav", speech, run);
  EXPECT_TRUE(std::filesystem::exists("voice/exercise/Squat.WAV"));
}

TEST_F(VoiceInstruction, SaysTheSetsThatExistBeforeItRefusesMore) {
  ExerciseRecord& exercise = AddExercise("Squat");
  exercise.SetType = kLevelAndTime;
  for (int set = 0; set < 17; ++set) AddSet(exercise, 5, 1);
  exercise.NumberOfSets = 18;

  EXPECT_THROW(GenerateHumanVoiceInstruction(state, 0, "temp.wav", speech, run), std::out_of_range);

  EXPECT_THAT(run.log, ElementsAre("ERROR: voice/18.wav NOT FOUND."));
  EXPECT_EQ(Clips().size(), std::size_t{1 + 1 + 17 * 5 + 1});
}

TEST_F(VoiceInstruction, GoesOnAfterMissingClipsAndNamesThemInOrder) {
  AddSet(AddExercise("Squat"), 47, 10);
  EXPECT_THAT(Speak(), ElementsAre("name", "1", "set", "kilograms", "for", "10", "reps"));
  EXPECT_THAT(run.log,
              ElementsAre("ERROR: voice/40.wav NOT FOUND.", "ERROR: voice/7.wav NOT FOUND."));
}

TEST_F(VoiceInstruction, RefusesAnIndexOutsideTheSlots) {
  EXPECT_THROW(GenerateHumanVoiceInstruction(state, 52, "temp.wav", speech, run),
               std::out_of_range);
  EXPECT_THROW(GenerateHumanVoiceInstruction(state, -1, "temp.wav", speech, run),
               std::out_of_range);
}

}  // namespace
}  // namespace repvolta
