#include <QCoreApplication>
#include <QDeadlineTimer>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>

#include "speech/EngineBackgroundSpeech.h"
#include "speech/EngineSpeech.h"
#include "speech/FliteEngine.h"

#include "support/ProgramsBeside.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::HasSubstr;

constexpr int kLimit = 30000;  // milliseconds

/// Speaks with the fake engine.
class EngineBackgroundSpeechTest : public testing::Test {
 protected:
  static std::unique_ptr<SpeechSynthesizer> Make(ChildProcesses& processes) {
    SpeechEngines engines;
    engines.push_back(
        std::make_unique<FliteEngine>(EngineProgram(processes, ProgramBeside("fake_engine"))));
    return std::make_unique<EngineSpeech>(std::move(engines));
  }

  SpeechRequest Request(const std::string& text) const {
    return {.text = text, .file = folder.Path() + "spoken.wav", .format = 14};
  }

  void Speak(const std::string& text) {
    speech.Speak(Request(text), [this](const std::string& failure) { result = failure; });
  }

  void Await() {
    const QDeadlineTimer limit(kLimit);
    while (!result && !limit.hasExpired()) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
    }
  }

  TemporaryFolder folder;
  std::optional<std::string> result;
  EngineBackgroundSpeech speech{Make};
};

TEST_F(EngineBackgroundSpeechTest, TellsInTheEventLoopThatTheFileIsWritten) {
  Speak("four");
  EXPECT_EQ(result, std::nullopt);
  Await();
  EXPECT_EQ(result, "");
  EXPECT_GT(std::filesystem::file_size("spoken.wav"), 10000U);
}

TEST_F(EngineBackgroundSpeechTest, TellsWhyAnEngineFailed) {
  Speak("crash");
  Await();
  EXPECT_THAT(*result, HasSubstr("crashed"));
}

TEST_F(EngineBackgroundSpeechTest, EndsAnEngineThatHangsWhenItIsStopped) {
  Speak("hang");
  speech.Stop();
  QCoreApplication::processEvents();
  EXPECT_EQ(result, std::nullopt);
}

TEST_F(EngineBackgroundSpeechTest, ANewTextTakesThePlaceOfTheOldOne) {
  Speak("hang");
  Speak("four");
  Await();
  EXPECT_EQ(result, "");
}

TEST_F(EngineBackgroundSpeechTest, TellsNothingOfATextThatWasStopped) {
  Speak("four");
  speech.Stop();
  QCoreApplication::processEvents();
  EXPECT_EQ(result, std::nullopt);
}

}  // namespace
}  // namespace repvolta
