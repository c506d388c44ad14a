#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

#include "instruction/VoiceNumber.h"

#include "fakes/RecordingScreen.h"
#include "support/ClipBytes.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::ElementsAre;

using Words = std::vector<std::string>;

/// The clips that a number asks for, told by the messages that they are missing.
Words Spoken(float value) {
  TemporaryFolder folder;
  RecordingScreen screen;
  GenerateVoiceNumber(value, "temp.wav", screen);
  Words words;
  for (const std::string& line : screen.log) {
    const std::string before = "ERROR: voice/";
    const std::string after = ".wav NOT FOUND.";
    EXPECT_TRUE(line.starts_with(before) && line.ends_with(after)) << line;
    words.push_back(line.substr(before.size(), line.size() - before.size() - after.size()));
  }
  return words;
}

struct Example {
  float value;
  Words words;
};

class VoiceNumber : public testing::TestWithParam<Example> {};

TEST_P(VoiceNumber, IsSaidInClips) { EXPECT_EQ(Spoken(GetParam().value), GetParam().words); }

INSTANTIATE_TEST_SUITE_P(
    Examples, VoiceNumber,
    testing::Values(Example{5, {"5"}}, Example{12, {"12"}}, Example{40, {"40"}},
                    Example{47, {"40", "7"}}, Example{100, {"100"}},
                    Example{135, {"100", "and", "30", "5"}}, Example{2.5F, {"2", "point", "5"}},
                    Example{0.5F, {"point", "5"}}, Example{1250, {"1000", "200", "and", "50"}},
                    Example{1050, {"1000", "50"}}, Example{2000, {"2000"}},
                    Example{7.97F, {"7", "point"}}, Example{12345, {"and"}}, Example{0, {}},
                    Example{-3, {}}));

INSTANTIATE_TEST_SUITE_P(
    Edges, VoiceNumber,
    testing::Values(Example{19, {"19"}}, Example{20, {"20"}}, Example{99, {"90", "9"}},
                    Example{105, {"100", "and", "5"}}, Example{100.5F, {"100", "point", "5"}},
                    Example{0.04F, {"point"}}, Example{0.96F, {"point"}},
                    Example{9999, {"9000", "900", "and", "90", "9"}},
                    Example{62.3F, {"60", "2", "point", "3"}}, Example{1, {"1"}},
                    Example{10, {"10"}}, Example{999, {"900", "and", "90", "9"}},
                    Example{1000, {"1000"}}, Example{1005, {"1000", "5"}}, Example{10000, {"and"}},
                    Example{-0.5F, {}}));

INSTANTIATE_TEST_SUITE_P(Decimals, VoiceNumber,
                         testing::Values(Example{0.25F, {"point", "2"}},
                                         Example{0.75F, {"point", "8"}},
                                         Example{0.35F, {"point", "3"}},
                                         Example{0.94F, {"point", "9"}},
                                         Example{7.5F, {"7", "point", "5"}}));

INSTANTIATE_TEST_SUITE_P(NoNumbers, VoiceNumber,
                         testing::Values(Example{std::nanf(""), {}},
                                         Example{-std::numeric_limits<float>::infinity(), {}},
                                         Example{std::numeric_limits<float>::infinity(), {"and"}}));

TEST(SpokenNumber, IsUsedUp) {
  TemporaryFolder folder;
  RecordingScreen screen;
  float value = 62.3F;
  GenerateVoiceNumber(value, "temp.wav", screen);
  EXPECT_EQ(value, 62.3F - 60 - 2);
}

TEST(SpokenNumber, GoesOnAfterAMissingClip) {
  TemporaryFolder folder;
  RecordingScreen screen;
  PutFile("temp.wav", ClipBytes(Bytes(10, 't')));
  PutFile("voice/7.wav", ClipBytes(Bytes(20, '7')));
  float value = 47;

  GenerateVoiceNumber(value, "temp.wav", screen);

  EXPECT_THAT(screen.log, ElementsAre("ERROR: voice/40.wav NOT FOUND."));
  EXPECT_EQ(GetFile("temp.wav").size(), 46U + 10 + 20);
}

TEST(SpokenNumber, TakesClipsOfAnyCase) {
  TemporaryFolder folder;
  RecordingScreen screen;
  PutFile("temp.wav", ClipBytes(Bytes(10, 't')));
  PutFile("voice/POINT.WAV", ClipBytes(Bytes(20, 'p')));
  float value = 0.01F;

  GenerateVoiceNumber(value, "temp.wav", screen);

  EXPECT_EQ(GetFile("temp.wav").size(), 46U + 10 + 20);
}

}  // namespace
}  // namespace repvolta
