#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "speech/EngineSpeech.h"
#include "speech/EspeakEngine.h"
#include "speech/FliteEngine.h"
#include "speech/PreparedSpeech.h"

#include "support/ProgramsBeside.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Counts the programs that the program's own thread starts, and starts none.
class CountedProcesses : public ChildProcesses {
 public:
  ChildResult Run(const ChildCommand& /*command*/) override {
    ++count;
    return {};
  }

  int count = 0;
};

class PreparedSpeechTest : public testing::Test {
 protected:
  static std::unique_ptr<SpeechSynthesizer> Make(ChildProcesses& processes) {
    SpeechEngines engines;
    engines.push_back(
        std::make_unique<FliteEngine>(EngineProgram(processes, ProgramBeside("fake_engine"))));
    engines.push_back(std::make_unique<EspeakEngine>(EngineProgram(processes, "no-espeak")));
    return std::make_unique<EngineSpeech>(std::move(engines));
  }

  TemporaryFolder folder_;
  CountedProcesses processes_;
};

TEST_F(PreparedSpeechTest, GivesTheListThatWasBegun) {
  PreparedSpeech speech(Make, processes_);
  EXPECT_THAT(speech.VoiceNames(), ElementsAre("English (rms) - flite", "English (slt) - flite",
                                               "English (kal16) - flite"));
  EXPECT_EQ(processes_.count, 0);
}

TEST_F(PreparedSpeechTest, ListsTheVoicesAnewWhenAskedAgain) {
  PreparedSpeech speech(Make, processes_);
  speech.VoiceNames();
  EXPECT_THAT(speech.VoiceNames(), IsEmpty());
  EXPECT_EQ(processes_.count, 2);
}

TEST_F(PreparedSpeechTest, SpeaksByTheProcessesThatItWasGiven) {
  PreparedSpeech speech(Make, processes_);
  EXPECT_THROW(speech.SpeakToFile({.text = "four", .file = "spoken.wav"}), SpeechError);
  EXPECT_GT(processes_.count, 0);
}

}  // namespace
}  // namespace repvolta
