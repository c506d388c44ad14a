#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "base/WholeFile.h"
#include "clips/ClipMaker.h"
#include "clips/ClipSound.h"
#include "clips/Take.h"
#include "sound/WavReader.h"

#include "support/MixedSound.h"
#include "support/ProgramsBeside.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::size_t kBlock = 960;  // 20 ms
constexpr double kQuietRoom = -75;   // dBFS
constexpr double kUsual = -12;       // dBFS, the peak of a word
constexpr double kBegin = 0.6;       // seconds, when somebody speaks

/// What the program's voice says, as somebody might say it.
Sound Spoken(const std::string& clip, double peak = kUsual) {
  const std::string file = ProgramBeside("../bin/voice/") + clip;
  return AtPeak(ReadWav(ReadWholeFile(file, 1'000'000)), peak);
}

double Seconds(const Sound& sound) {
  return static_cast<double>(sound.samples.size()) / sound.rate;
}

/// A room in which something is said.
Sound Room(const Sound& words, double noise = kQuietRoom, double second = kBegin) {
  Sound room = Noise(second + Seconds(words) + 2, noise);
  Mix(room, words, second);
  return room;
}

/// What a take makes of a sound, as much as it wants of it.
Take TakenOf(const Sound& sound) {
  Take take(Microphone::kRate);
  for (std::span<const float> rest = sound.samples; !rest.empty() && !take.HasEnded();) {
    const std::size_t count = std::min(kBlock, rest.size());
    take.Add(rest.first(count));
    rest = rest.subspan(count);
  }
  return take;
}

std::vector<TakeFault> FaultsOf(const Sound& sound) {
  const Take take = TakenOf(sound);
  EXPECT_TRUE(take.HasEnded());
  return take.Judgement().faults;
}

double ClipSeconds(const Take& take) {
  const Sound recording = take.Recording();
  return Seconds(ReadWav(ClipOf(WholeSound(recording), kClipLoudness)));
}

TEST(Take, AWordInAQuietRoomIsTakenWhole) {
  for (const char* clip : {"8.wav", "300.wav", "set.wav", "sets.wav", "reps.wav", "point.wav",
                           "exercise/Overhead Triceps Extension.WAV"}) {
    const Sound word = Spoken(clip);
    const Take take = TakenOf(Room(word));
    EXPECT_TRUE(take.HasEnded()) << clip;
    EXPECT_THAT(take.Judgement().faults, IsEmpty()) << clip;
    EXPECT_NEAR(ClipSeconds(take), Seconds(word), 0.06) << clip;
  }
}

TEST(Take, EndsWhenThePauseBehindTheWordIsOver) {
  const Sound word = Spoken("8.wav");
  const Sound room = Room(word);
  Take take(Microphone::kRate);
  take.Add(std::span(room.samples).first(SamplesIn(kBegin + Seconds(word) + 0.5)));
  EXPECT_EQ(take.Stage(), TakeStage::kWord);
  take.Add(
      std::span(room.samples).subspan(SamplesIn(kBegin + Seconds(word) + 0.5), SamplesIn(0.3)));
  EXPECT_EQ(take.Stage(), TakeStage::kEnded);
}

TEST(Take, APauseWithinTheWordsDoesNotEndIt) {
  Sound words = Spoken("4.wav");
  Mix(words, Spoken("100.wav"), Seconds(words) + 0.5);
  const Take take = TakenOf(Room(words));
  EXPECT_THAT(take.Judgement().faults, IsEmpty());
  EXPECT_NEAR(ClipSeconds(take), Seconds(words), 0.06);
}

TEST(Take, GoesThroughItsStages) {
  const Sound room = Room(Spoken("8.wav"));
  std::vector<TakeStage> stages;
  Take take(Microphone::kRate);
  for (std::size_t i = 0; i < room.samples.size(); i += kBlock) {
    if (stages.empty() || stages.back() != take.Stage()) stages.push_back(take.Stage());
    take.Add(std::span(room.samples).subspan(i, std::min(kBlock, room.samples.size() - i)));
  }
  EXPECT_THAT(stages, ElementsAre(TakeStage::kRoom, TakeStage::kWaiting, TakeStage::kWord,
                                  TakeStage::kEnded));
}

TEST(Take, TheKeyThatStartedItIsNoPartOfTheWord) {
  const Sound word = Spoken("8.wav");
  Sound room = Room(word);
  Mix(room, Noise(0.03, -15), 0.02);
  Mix(room, Noise(0.02, -20), 0.14);
  const Take take = TakenOf(room);
  EXPECT_THAT(take.Judgement().faults, IsEmpty());
  EXPECT_NEAR(ClipSeconds(take), Seconds(word), 0.06);
}

TEST(Take, AClickLongBeforeTheWordIsNoPartOfIt) {
  const Sound word = Spoken("8.wav");
  Sound room = Room(word, kQuietRoom, 2);
  Mix(room, Noise(0.03, -15), 1);
  EXPECT_NEAR(ClipSeconds(TakenOf(room)), Seconds(word), 0.06);
}

TEST(Take, WhatIsHeardAfterTheEndDoesNotCount) {
  const Sound room = Room(Spoken("8.wav"));
  Take take = TakenOf(room);
  const std::size_t size = take.Recording().samples.size();
  take.Add(Spoken("9.wav").samples);
  EXPECT_EQ(take.Recording().samples.size(), size);
}

TEST(Take, AWordCountsAlsoWhenItIsEndedByHand) {
  const Sound word = Spoken("8.wav");
  const Sound room = Room(word);
  Take take(Microphone::kRate);
  take.Add(std::span(room.samples).first(SamplesIn(kBegin + Seconds(word) + 0.1)));
  EXPECT_FALSE(take.HasEnded());
  take.End();
  EXPECT_TRUE(take.HasEnded());
  EXPECT_THAT(take.Judgement().faults, IsEmpty());
  EXPECT_NEAR(ClipSeconds(take), Seconds(word), 0.06);
}

TEST(Take, EndsWhenNothingIsSaid) {
  const Take take = TakenOf(Noise(7, kQuietRoom));
  EXPECT_TRUE(take.HasEnded());
  EXPECT_THAT(take.Judgement().faults, ElementsAre(TakeFault::kNothingHeard));
  EXPECT_FALSE(take.Judgement().hasWord);
}

TEST(Take, EndsSoonWhenTheInputGivesOnlyZeros) {
  const Sound silence{Microphone::kRate, std::vector<float>(SamplesIn(3))};
  EXPECT_THAT(FaultsOf(silence), ElementsAre(TakeFault::kNoSound));
}

TEST(Take, AWordThatSoundsAtTheStartIsCutOff) {
  Sound word = Spoken("kilograms.wav");
  word.samples.erase(word.samples.begin(), word.samples.begin() + 9600);
  EXPECT_THAT(FaultsOf(Room(word, kQuietRoom, 0)), ElementsAre(TakeFault::kCutOff));
}

TEST(Take, AWordSoonAfterTheStartIsNotCutOff) {
  EXPECT_THAT(FaultsOf(Room(Spoken("kilograms.wav"), kQuietRoom, 0.1)), IsEmpty());
}

TEST(Take, WhoDoesNotStopIsToldSo) {
  Sound words{Microphone::kRate, {}};
  const Sound word = Spoken("kilograms.wav");
  while (words.samples.size() < SamplesIn(15)) Mix(words, word, Seconds(words) + 0.2);
  const Take take = TakenOf(Room(words));
  EXPECT_THAT(take.Judgement().faults, ElementsAre(TakeFault::kTooLong));
  EXPECT_TRUE(take.Judgement().hasWord);
}

TEST(Take, AWordBeyondFullScaleIsClipped) {
  EXPECT_THAT(FaultsOf(Room(Spoken("8.wav", 6))), ElementsAre(TakeFault::kClipped));
  EXPECT_THAT(FaultsOf(Room(Spoken("8.wav", -1))), IsEmpty());
}

TEST(Take, AFaintWordIsTooQuiet) {
  EXPECT_THAT(FaultsOf(Room(Spoken("8.wav", -36), -96)), ElementsAre(TakeFault::kTooQuiet));
  EXPECT_THAT(FaultsOf(Room(Spoken("8.wav", -28), -96)), IsEmpty());
}

/// The noise is so many decibels below the word.
std::vector<TakeFault> FaultsInNoise(double distance) {
  const Sound word = Spoken("kilograms.wav");
  return FaultsOf(Room(word, LevelOf(word.samples).rms - distance));
}

TEST(Take, ANoiseCloseToTheWordIsANoisyRoom) {
  EXPECT_THAT(FaultsInNoise(15), ElementsAre(TakeFault::kNoisyRoom));
  EXPECT_THAT(FaultsInNoise(28), ElementsAre(TakeFault::kNoisyRoom));
  EXPECT_THAT(FaultsInNoise(38), IsEmpty());
}

TEST(Take, ANoiseThatHidesTheWordIsANoisyRoom) {
  Sound room = Noise(7, -20);
  Mix(room, Spoken("8.wav"), 1);
  EXPECT_THAT(FaultsOf(room), ElementsAre(TakeFault::kNothingHeard, TakeFault::kNoisyRoom));
}

class TakeInHum : public testing::TestWithParam<double> {};

TEST_P(TakeInHum, TellsItFromANoiseAndFindsTheWord) {
  const Sound word = Spoken("kilograms.wav");
  Sound room = Room(word);
  Mix(room, Hum(Seconds(room), GetParam(), LevelOf(word.samples).rms - 20), 0);
  const Take take = TakenOf(room);
  EXPECT_THAT(take.Judgement().faults, ElementsAre(TakeFault::kHum));
  EXPECT_NEAR(ClipSeconds(take), Seconds(word), 0.15);
}

TEST_P(TakeInHum, AFaintOneDoesNoHarm) {
  const Sound word = Spoken("kilograms.wav");
  Sound room = Room(word);
  Mix(room, Hum(Seconds(room), GetParam(), LevelOf(word.samples).rms - 30), 0);
  EXPECT_THAT(FaultsOf(room), IsEmpty());
}

TEST_P(TakeInHum, IsToldAlsoWithoutAWord) {
  Sound room = Noise(7, kQuietRoom);
  Mix(room, Hum(7, GetParam(), -30), 0);
  EXPECT_THAT(FaultsOf(room), ElementsAre(TakeFault::kNothingHeard, TakeFault::kHum));
}

INSTANTIATE_TEST_SUITE_P(OfAnyMains, TakeInHum, testing::Values(50.0, 49.9, 60.0, 60.1));

TEST(TakeAdvice, SaysWhatHappenedAndWhatToDo) {
  for (const TakeFault fault :
       {TakeFault::kNoSound, TakeFault::kNothingHeard, TakeFault::kCutOff, TakeFault::kTooLong,
        TakeFault::kClipped, TakeFault::kTooQuiet, TakeFault::kHum, TakeFault::kNoisyRoom}) {
    EXPECT_THAT(AdviceOn(fault).happened, testing::MatchesRegex("[A-Z][^.]+\\."));
    EXPECT_THAT(AdviceOn(fault).remedy, testing::MatchesRegex("[A-Z][^.]+\\."));
  }
  EXPECT_EQ(AdviceOn(TakeFault::kNoisyRoom).happened, "The room is too noisy.");
}

}  // namespace
}  // namespace repvolta
