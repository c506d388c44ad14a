#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/QtChildProcesses.h"
#include "speech/FliteEngine.h"

#include "support/ProgramsBeside.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// The engine, played by the fake one.
class FliteEngineTest : public testing::Test {
 protected:
  FliteEngine Engine(const std::string& program) {
    return FliteEngine(EngineProgram(processes_, program));
  }
  FliteEngine Engine() { return Engine(ProgramBeside("fake_engine")); }

  TemporaryFolder folder_;
  QtChildProcesses processes_;
};

TEST_F(FliteEngineTest, OffersTheClearestVoicesFirstAndNoneThatOnlyTellsTheTime) {
  std::vector<std::string> voices;
  for (const EngineVoice& voice : Engine().Voices()) voices.push_back(voice.id + ": " + voice.name);
  EXPECT_THAT(voices, ElementsAre("rms: English (rms) - flite", "slt: English (slt) - flite",
                                  "kal16: English (kal16) - flite"));
}

TEST_F(FliteEngineTest, HasNoVoicesWhereItIsNotInstalled) {
  EXPECT_THAT(Engine("no-flite").Voices(), IsEmpty());
}

TEST_F(FliteEngineTest, SpeaksWithTheVoice) {
  EXPECT_EQ(Engine().Speak("four", {"", "slt"}, 1).samples.size(), 4U * 800);
  EXPECT_THAT(GetTextFile("arguments"), HasSubstr("-voice\nslt\n"));
}

TEST_F(FliteEngineTest, GivesTheProgramAPointInTheFactor) {
  Engine().Speak("hi", {"", "slt"}, 1.0 / 3);
  EXPECT_THAT(GetTextFile("arguments"), HasSubstr("duration_stretch=0.333"));
}

}  // namespace
}  // namespace repvolta
