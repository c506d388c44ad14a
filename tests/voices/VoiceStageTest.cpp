#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "clips/VoiceCheck.h"
#include "sound/Sound.h"
#include "voices/VoiceClips.h"
#include "voices/VoiceStage.h"
#include "voices/WholeVoices.h"

#include "support/FailureOf.h"
#include "support/FullDisk.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class StageOfVoice : public testing::Test {
 protected:
  TemporaryFolder folder_;
};

TEST_F(StageOfVoice, BecomesAVoiceWhenItIsPutInPlace) {
  VoiceStage stage;
  stage.Add("1.wav", ClipOf('1'));
  stage.Add("exercise/Squat.WAV", ClipOf('s'));
  EXPECT_THAT(ListVoices(), IsEmpty());
  stage.Commit("Kim", {});
  EXPECT_THAT(ListVoices(), ElementsAre("Kim"));
  EXPECT_EQ(GetFile("voices/Kim/1.wav"), ClipOf('1'));
  EXPECT_EQ(GetFile("voices/Kim/exercise/Squat.WAV"), ClipOf('s'));
}

TEST_F(StageOfVoice, LeavesNothingWithoutThat) {
  {
    VoiceStage().Add("1.wav", ClipOf('1'));
  }
  EXPECT_TRUE(fs::is_empty("voices"));
}

TEST_F(StageOfVoice, RemovesWhatAKillHasLeft) {
  PutClip("voices/.taken in/2.wav", '2');
  VoiceStage stage;
  stage.Add("1.wav", ClipOf('1'));
  stage.Commit("Kim", {});
  EXPECT_THAT(ClipsIn("voices/Kim/"), ElementsAre("1.wav"));
}

TEST_F(StageOfVoice, IsTheOnlyOne) {
  const VoiceStage stage;
  EXPECT_THAT(FailureOf([] { const VoiceStage second; }),
              HasSubstr("Another window is taking in a voice"));
}

TEST_F(StageOfVoice, NeverTakesThePlaceOfAVoice) {
  PutClip("voices/Kim/1.wav", 'k');
  {
    VoiceStage stage;
    stage.Add("1.wav", ClipOf('1'));
    EXPECT_THAT(FailureOf([&] { stage.Commit("Kim", {}); }), HasSubstr("could not be renamed"));
  }
  EXPECT_EQ(GetFile("voices/Kim/1.wav"), ClipOf('k'));
  EXPECT_FALSE(fs::exists("voices/.taken in"));
}

TEST_F(StageOfVoice, LeavesNothingOnAFullDisk) {
  std::string failure;
  {
    VoiceStage stage;
    const FullDisk full(100);
    failure = FailureOf([&] { stage.Add("1.wav", ClipOf('1')); });
  }
  EXPECT_THAT(failure, HasSubstr("could not be written"));
  EXPECT_TRUE(fs::is_empty("voices"));
}

TEST_F(StageOfVoice, LeavesNothingWhenItIsStoppedAtTheEnd) {
  struct Stopped {};
  {
    VoiceStage stage;
    stage.Add("1.wav", ClipOf('1'));
    EXPECT_THROW(stage.Commit("Kim", [](std::size_t, std::size_t) { throw Stopped(); }), Stopped);
  }
  EXPECT_TRUE(fs::is_empty("voices"));
}

/// Sound as another program would record it: a loud tone, or silence.
Bytes OtherFormat(float amplitude) {
  Sound sound{.rate = 44100, .samples = {}};
  for (int i = 0; i < 12'000; ++i) sound.samples.push_back(i % 100 < 50 ? amplitude : -amplitude);
  return EncodeWav(sound, {.rate = 44100, .bits = 16, .channels = 1});
}

TEST_F(StageOfVoice, MakesClipsOfSoundsInOtherFormats) {
  VoiceStage stage;
  stage.Add("1.wav", OtherFormat(0.25F));
  stage.Add("2.wav", OtherFormat(0));
  std::size_t seen = 0;
  const auto failures = stage.Convert({"1.wav", "2.wav"}, [&](std::size_t done, std::size_t all) {
    EXPECT_EQ(all, 2U);
    EXPECT_EQ(done, ++seen);
  });
  EXPECT_THAT(failures, ElementsAre("2.wav has only silence"));
  EXPECT_THAT(ClipsIn(stage.Folder()), ElementsAre("1.wav"));
  for (const ClipFinding& finding : CheckVoice(stage.Folder()).findings) {
    EXPECT_EQ(finding.fault, ClipFault::kMissing) << finding.file;
  }
}

}  // namespace
}  // namespace repvolta
