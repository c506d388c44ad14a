#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "clips/ClipChecks.h"
#include "clips/ClipMaker.h"

#include "support/WavBytes.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

Speaker SpeakerOf(ToneEngine& engine) { return {&engine, engine.voices.back()}; }

TEST(MakeClips, SpeaksThemWithTheVoiceInTheirFolders) {
  TemporaryFolder folder;
  PutFile("voice/set.wav", "an older clip");
  ToneEngine engine;
  MakeClips(SpeakerOf(engine), {{"set.wav", "a set"}, {"exercise/Squat.WAV", "Squat"}}, "voice");
  EXPECT_THAT(engine.spoken, ElementsAre("slt: a set", "slt: Squat"));
  ExpectClip("voice/set.wav");
  ExpectClip("voice/exercise/Squat.WAV");
}

TEST(MakeClips, WritesNoneUnlessAllAreSpoken) {
  TemporaryFolder folder;
  ToneEngine engine;
  const Speaker speaker = SpeakerOf(engine);
  EXPECT_THROW(MakeClips(speaker, {{"set.wav", "set"}, {"for.wav", "trouble"}}, "voice"),
               SpeechError);
  EXPECT_THROW(MakeClips(speaker, {{"set.wav", "set"}, {"for.wav", "silence"}}, "voice"),
               ClipError);
  EXPECT_FALSE(fs::exists("voice"));
}

TEST(MakeClips, MakesAShortSilenceWhereNothingIsSaid) {
  TemporaryFolder folder;
  ToneEngine engine;
  MakeClips(SpeakerOf(engine), {{"and.wav", ""}, {"set.wav", "set"}}, "voice");
  const Sound silence = ReadWav(GetFile("voice/and.wav"));
  EXPECT_EQ(silence.samples, std::vector<float>(1120));
  EXPECT_EQ(silence.rate, 16000U);
  EXPECT_THAT(engine.spoken, ElementsAre("slt: set"));
  ExpectClip("voice/set.wav");
}

TEST(MakeClips, SpeaksAtTheEnginesOwnSpeed) {
  TemporaryFolder folder;
  ToneEngine engine;
  MakeClips(SpeakerOf(engine), {{"set.wav", "set"}}, "voice");
  EXPECT_NEAR(static_cast<double>(ReadWav(GetFile("voice/set.wav")).samples.size()) / 16000,
              0.5 + 0.07, 0.01);
}

TEST(MakeClipOfRecording, TakesALongRecording) {
  TemporaryFolder folder;
  constexpr int kSamples = 500000;
  WavBytes recording;
  recording.Format(1, 16000, 16).Text("data").U32(2 * kSamples);
  for (int i = 0; i < kSamples; ++i) {
    const int level = i / 10 % 2 == 0 ? 3000 : -3000;
    recording.U16(static_cast<std::uint16_t>(i < kSamples - 16000 ? 0 : level));
  }
  PutFile("recording.wav", recording.Get());
  MakeClipOfRecording("recording.wav", "set.wav");
  ExpectClip("set.wav");
}

TEST(MakeClipOfRecording, ReplacesTheRecordingByItsClip) {
  TemporaryFolder folder;
  WavBytes recording;
  recording.Format(1, 16000, 8).Text("data").U32(8000);
  for (int i = 0; i < 8000; ++i) recording.Text(i / 10 % 2 == 0 ? "\x60" : "\xA0");
  PutFile("set.wav", recording.Get());
  MakeClipOfRecording("set.wav", "set.wav");
  ExpectClip("set.wav");
}

TEST(MakeClipOfRecording, KeepsTheClipWhenTheRecordingIsSilent) {
  TemporaryFolder folder;
  PutFile("recording.wav", WavBytes().Format(1, 16000, 16).Samples16({0, 0, 0}).Get());
  PutFile("set.wav", "an older clip");
  EXPECT_THROW(MakeClipOfRecording("recording.wav", "set.wav"), ClipError);
  EXPECT_EQ(GetTextFile("set.wav"), "an older clip");
}

}  // namespace
}  // namespace repvolta
