#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "instruction/VoiceNumber.h"

#include "fakes/RecordingRun.h"
#include "support/ClipBytes.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::ElementsAre;

class VoiceNumber : public testing::Test {
 protected:
  VoiceNumber() { PutFile("temp.wav", ClipBytes(Bytes(10, 't'))); }

  TemporaryFolder folder;
  RecordingRun run;
};

TEST_F(VoiceNumber, JoinsItsClipsInTheOrderOfItsWords) {
  PutFile("voice/40.wav", ClipBytes(Bytes(20, '4')));
  PutFile("voice/7.wav", ClipBytes(Bytes(5, '7')));
  float value = 47;

  GenerateVoiceNumber(value, "temp.wav", run);

  // The last byte before each clip is its header's.
  const Bytes joined = GetFile("temp.wav");
  const std::string samples(AsText(std::span(joined).subspan(46)));
  EXPECT_EQ(samples.substr(0, 9) + samples.substr(10, 19) + samples.substr(30),
            std::string(9, 't') + std::string(19, '4') + std::string(5, '7'));
}

TEST_F(VoiceNumber, IsUsedUp) {
  float value = 62.3F;
  GenerateVoiceNumber(value, "temp.wav", run);
  EXPECT_EQ(value, 62.3F - 60 - 2);
}

TEST_F(VoiceNumber, GoesOnAfterAMissingClip) {
  PutFile("voice/7.wav", ClipBytes(Bytes(20, '7')));
  float value = 47;

  GenerateVoiceNumber(value, "temp.wav", run);

  EXPECT_THAT(run.log, ElementsAre("ERROR: voice/40.wav NOT FOUND."));
  EXPECT_EQ(GetFile("temp.wav").size(), 46U + 10 + 20);
}

TEST_F(VoiceNumber, TakesClipsOfAnyCase) {
  PutFile("voice/POINT.WAV", ClipBytes(Bytes(20, 'p')));
  float value = 0.01F;

  GenerateVoiceNumber(value, "temp.wav", run);

  EXPECT_EQ(GetFile("temp.wav").size(), 46U + 10 + 20);
}

}  // namespace
}  // namespace repvolta
