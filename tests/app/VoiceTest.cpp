#include <gtest/gtest.h>

#include "app/Voice.h"

namespace repvolta {
namespace {

TEST(SetUpVoice, TakesTheVoiceOfTheSettings) {
  ProgramState state;
  state.Settings.VoiceIndex = 3;
  state.Settings.VoiceRate = -4;
  state.Settings.VoiceVolume = 90;
  SetUpVoice(state);
  EXPECT_EQ(state.Voice.Voice, 3);
  EXPECT_EQ(state.Voice.Rate, -4);
  EXPECT_EQ(state.Voice.Volume, 90);
}

TEST(SetUpVoice, BeginsWithTheUsualFormat) {
  ProgramState state;
  state.Voice.Format = 2;
  SetUpVoice(state);
  EXPECT_EQ(state.Voice.Format, 14);
}

}  // namespace
}  // namespace repvolta
