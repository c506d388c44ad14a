#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>
#include <random>

#include "clips/ClipMaker.h"
#include "clips/ClipSound.h"
#include "clips/VoiceLevel.h"
#include "clips/WordClips.h"
#include "sound/WavReader.h"

#include "support/ProgramsBeside.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

/// A "word" of half a second with peaks far above its mean, as speech has them.
Sound Word(float level) {
  Sound word{16000, std::vector<float>(8000)};
  std::mt19937 random{1};
  std::normal_distribution<float> spread(0, 1);
  for (std::size_t i = 0; i < word.samples.size(); ++i) {
    const float swell = std::sin(0.0004F * static_cast<float>(i));
    word.samples[i] = std::clamp(level * swell * spread(random), -0.9F, 0.9F);
  }
  return word;
}

Bytes ClipOf(const Sound& sound) { return EncodeWav(sound, kClipFormat); }

double LoudnessOf(const Bytes& clip) { return JoinedLoudness(std::vector<Sound>{ReadWav(clip)}); }

void PutClip(const std::string& file, double loudness) {
  const Bytes clip = ClipOf(Word(0.1F));
  const Bytes louder = LouderClip(clip, loudness - LoudnessOf(clip));
  PutFile(file, std::string(louder.begin(), louder.end()));
}

void PutWords(const std::string& folder, std::size_t count, double loudness) {
  for (std::size_t i = 0; i < count; ++i) PutClip(folder + "/" + WordClips()[i], loudness);
}

void PutRecording() {
  const Bytes recording = ClipOf(Word(0.05F));
  PutFile("recording.wav", std::string(recording.begin(), recording.end()));
}

TEST(LoudnessOfVoice, IsThatOfTheWordInTheMiddle) {
  TemporaryFolder folder;
  PutWords("voice", 7, -14);
  PutClip("voice/1.wav", -30);
  PutClip("voice/2.wav", -10);
  EXPECT_NEAR(LoudnessOfVoice("voice"), -14, 0.2);
}

TEST(LoudnessOfVoice, DoesNotDependOnNames) {
  TemporaryFolder folder;
  PutWords("voice", 5, -14);
  for (const char letter : std::string("abcdefg")) {
    PutClip(std::string("voice/exercise/") + letter + ".WAV", -25);
  }
  EXPECT_NEAR(LoudnessOfVoice("voice"), -14, 0.2);
}

TEST(LoudnessOfVoice, IsThatOfOurClipsWhereThereAreFewWords) {
  TemporaryFolder folder;
  EXPECT_EQ(LoudnessOfVoice("voice"), kClipLoudness);
  PutWords("voice", 4, -14);
  EXPECT_EQ(LoudnessOfVoice("voice"), kClipLoudness);
}

TEST(VoiceOfClip, IsTheFolderAboveForANameAndTheFolderItselfForAWord) {
  EXPECT_EQ(VoiceOfClip("/home/voice/set.wav"), "/home/voice");
  EXPECT_EQ(VoiceOfClip("/home/voice/exercise/Squat.WAV"), "/home/voice");
  EXPECT_EQ(VoiceOfClip("/home/voice/./exercise//Squat.WAV"), "/home/voice");
}

TEST(VoiceOfClip, LooksForAFileWithoutFolderWhereItWillBe) {
  TemporaryFolder folder;
  const std::string here = fs::current_path();
  EXPECT_EQ(VoiceOfClip("set.wav"), here);
  fs::create_directories("exercise");
  fs::current_path("exercise");
  EXPECT_EQ(VoiceOfClip("Squat.WAV"), here);
  fs::current_path(here);
}

TEST(LouderClip, KeepsTheBytesWithoutADifference) {
  const Bytes clip = ClipOf(Word(0.05F));
  EXPECT_EQ(LouderClip(clip, 0), clip);
}

TEST(LouderClip, IsLouderByTheDifference) {
  const Bytes clip = ClipOf(Word(0.05F));
  EXPECT_NEAR(LoudnessOf(LouderClip(clip, 3)), LoudnessOf(clip) + 3, 0.1);
  EXPECT_NEAR(LoudnessOf(LouderClip(clip, -3)), LoudnessOf(clip) - 3, 0.1);
}

TEST(LouderClip, LeavesSilenceAndWhatIsNoClipAlone) {
  const Bytes silence = ClipOf(Sound{16000, std::vector<float>(8000)});
  EXPECT_EQ(LouderClip(silence, 6), silence);
  const Bytes words = {'n', 'o'};
  EXPECT_EQ(LouderClip(words, 6), words);
}

TEST(LouderClip, LeavesOtherRatesAlone) {
  const Bytes fast = EncodeWav(Word(0.05F), {.rate = 44100, .bits = 16, .channels = 1});
  EXPECT_EQ(LouderClip(fast, 6), fast);
}

/// The program's own clips, which the build has spoken.
TEST(LouderClipJudged, BringsSpokenWordsToTheHighestLevel) {
  for (const std::string word : {"4.wav", "8.wav", "50.wav", "for.wav", "sets.wav"}) {
    const Bytes clip = GetFile(ProgramBeside("../bin/voice/" + word));
    const Bytes louder = LouderClip(clip, 8);
    EXPECT_NEAR(LoudnessOf(louder), LoudnessOf(clip) + 8, 1) << word;
    EXPECT_LE(Peak(ReadWav(louder)), kClipPeak + 1.0F / 32768) << word;
  }
}

class RecordingBesideClips : public testing::TestWithParam<double> {};

TEST_P(RecordingBesideClips, BecomesAsLoudAsTheWords) {
  TemporaryFolder folder;
  PutWords("voice", 9, GetParam());
  PutRecording();
  MakeClipOfRecording("recording.wav", "voice/miles.wav");
  EXPECT_NEAR(LoudnessOf(GetFile("voice/miles.wav")), GetParam(), 1);
  EXPECT_LE(Peak(ReadWav(GetFile("voice/miles.wav"))), kClipPeak + 1.0F / 32768);
}

TEST_P(RecordingBesideClips, BecomesAsLoudAsTheWordsAboveTheNames) {
  TemporaryFolder folder;
  PutWords("voice", 9, GetParam());
  PutClip("voice/exercise/Squat.WAV", -30);
  PutRecording();
  MakeClipOfRecording("recording.wav", "voice/exercise/Plank.WAV");
  EXPECT_NEAR(LoudnessOf(GetFile("voice/exercise/Plank.WAV")), GetParam(), 1);
}

INSTANTIATE_TEST_SUITE_P(OfALevel, RecordingBesideClips, testing::Values(-18, -14, -10));

TEST(RecordingInAnEmptyFolder, BecomesAsLoudAsOurClips) {
  TemporaryFolder folder;
  fs::create_directories("voice");
  PutRecording();
  MakeClipOfRecording("recording.wav", "voice/set.wav");
  EXPECT_NEAR(LoudnessOf(GetFile("voice/set.wav")), kClipLoudness, 1);
}

}  // namespace
}  // namespace repvolta
