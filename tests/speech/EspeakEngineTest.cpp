#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/QtChildProcesses.h"
#include "speech/EspeakEngine.h"

#include "support/ProgramsBeside.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// The engine, played by the fake one.
class EspeakEngineTest : public testing::Test {
 protected:
  EspeakEngine Engine(const std::string& program) {
    return EspeakEngine(EngineProgram(processes_, program));
  }
  EspeakEngine Engine() { return Engine(ProgramBeside("fake_engine")); }

  TemporaryFolder folder_;
  QtChildProcesses processes_;
};

TEST_F(EspeakEngineTest, HasItsOwnVoicesUnderReadableNames) {
  std::vector<std::string> voices;
  for (const EngineVoice& voice : Engine().Voices()) voices.push_back(voice.id + ": " + voice.name);
  EXPECT_THAT(voices, ElementsAre("gmw/af: Afrikaans - espeak-ng",
                                  "gmw/en-US: English (America) - espeak-ng"));
}

TEST_F(EspeakEngineTest, HasNoVoicesWhereItIsNotInstalled) {
  EXPECT_THAT(Engine("no-espeak").Voices(), IsEmpty());
}

TEST_F(EspeakEngineTest, SpeaksWithTheVoiceAtItsUsualSpeed) {
  EXPECT_EQ(Engine().Speak("four", {"", "gmw/af"}, 1).samples.size(), 4U * 800);
  EXPECT_THAT(GetTextFile("arguments"), HasSubstr("-v\ngmw/af\n-s\n175\n"));
}

TEST_F(EspeakEngineTest, StretchesWhatTheProgramCannotSlowDown) {
  const Sound sound = Engine().Speak("hi", {"", "gmw/af"}, 3);
  EXPECT_THAT(GetTextFile("arguments"), HasSubstr("-s\n80\n"));
  EXPECT_NEAR(static_cast<double>(sound.samples.size()), 2 * 800 * 3 * 80 / 175.0, 2);
}

}  // namespace
}  // namespace repvolta
