#include <gtest/gtest.h>

#include "clips/VoiceLevel.h"
#include "sound/WavReader.h"
#include "voices/ProgramVoice.h"

#include "support/TemporaryFolder.h"
#include "support/ToneClip.h"

namespace repvolta {
namespace {

double LoudnessOf(const Bytes& clip) {
  const Sound sound = ReadWav(clip);
  return JoinedLoudness(std::span(&sound, 1));
}

/// A program's voice of six words and "Squat".
class ProgramVoiceTest : public testing::Test {
 protected:
  ProgramVoiceTest() {
    for (const char* word : {"1", "2", "3", "4", "5", "6"}) {
      PutFile(std::string("program-voice/") + word + ".wav", AsText(ToneClip(0.1F)));
    }
    PutFile("program-voice/exercise/Squat.WAV", AsText(ToneClip(0.08F)));
  }

  TemporaryFolder folder_;
  ProgramVoice voice_{"program-voice/"};
};

TEST_F(ProgramVoiceTest, HasItsClipsWithoutRegardToCase) {
  EXPECT_TRUE(voice_.Has("1.wav"));
  EXPECT_TRUE(voice_.Has("exercise/SQUAT.wav"));
  EXPECT_FALSE(voice_.Has("exercise/OHP.WAV"));
  EXPECT_EQ(voice_.ClipOf("exercise/squat.WAV"), ToneClip(0.08F));
  EXPECT_EQ(voice_.ClipOf("exercise/OHP.WAV"), std::nullopt);
}

TEST_F(ProgramVoiceTest, IsEmptyWithoutAFolder) {
  ProgramVoice none("");
  EXPECT_FALSE(none.Has("1.wav"));
  EXPECT_EQ(none.ClipOf("1.wav"), std::nullopt);
  EXPECT_FALSE(none.ClipFor("1.wav", -18));
}

TEST_F(ProgramVoiceTest, GivesTheVeryBytesForAVoiceAsLoud) {
  const double own = LoudnessOfVoice("program-voice");
  for (const double difference : {-0.4, 0.0, 0.4}) {
    const auto clip = voice_.ClipFor("exercise/squat.WAV", own + difference);
    EXPECT_EQ(clip->content, ToneClip(0.08F)) << difference;
    EXPECT_EQ(clip->file, "exercise/squat.WAV");
    EXPECT_EQ(clip->origin, ClipOrigin{.owner = ClipOwner::kProgram});
  }
}

TEST_F(ProgramVoiceTest, GivesALouderClipForALouderVoice) {
  const double own = LoudnessOfVoice("program-voice");
  for (const double difference : {-6.0, 6.0}) {
    const auto clip = voice_.ClipFor("1.wav", own + difference);
    EXPECT_NEAR(LoudnessOf(clip->content), LoudnessOf(ToneClip(0.1F)) + difference, 0.5);
  }
}

}  // namespace
}  // namespace repvolta
