#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/QtChildProcesses.h"
#include "speech/EngineProgram.h"
#include "speech/SpeechSynthesizer.h"

#include "support/ProgramsBeside.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using std::chrono::milliseconds;
using testing::HasSubstr;
using testing::Not;

/// The program of an engine, played by the fake one.
class EngineProgramTest : public testing::Test {
 protected:
  EngineProgram Program(const std::string& program, milliseconds limit = milliseconds(20000)) {
    return EngineProgram(processes_, program, limit);
  }

  static std::vector<std::string> ArgumentsOf(const EngineProgram::Files& files) {
    return {"-f", files.text, "-o", files.sound};
  }

  std::string ErrorOf(const std::string& text, milliseconds limit = milliseconds(20000)) {
    try {
      Program(fake_, limit).Speak(text, ArgumentsOf);
    } catch (const SpeechError& error) {
      return error.what();
    }
    return "no error";
  }

  TemporaryFolder folder_;
  const std::string fake_ = ProgramBeside("fake_engine");
  QtChildProcesses processes_;
};

TEST_F(EngineProgramTest, GivesTheSoundThatTheEngineWrote) {
  const Sound sound = Program(fake_).Speak("four", ArgumentsOf);
  EXPECT_EQ(sound.rate, 8000U);
  EXPECT_EQ(sound.samples.size(), 4U * 800);
}

TEST_F(EngineProgramTest, GivesTheTextInAFileAndAsInputOnly) {
  EXPECT_EQ(Program(fake_).Speak("secret", ArgumentsOf).samples.size(), 6U * 800);
  EXPECT_THAT(GetTextFile("arguments"), Not(HasSubstr("secret")));
  const auto byInput = [](const EngineProgram::Files& files) {
    return std::vector<std::string>{"--stdin", "-o", files.sound};
  };
  EXPECT_EQ(Program(fake_).Speak("secret", byInput).samples.size(), 6U * 800);
}

TEST_F(EngineProgramTest, GivesItsOutputWhenItIsThere) {
  EXPECT_THAT(Program(fake_).Output({"-lv"}), HasSubstr("Voices available"));
  EXPECT_EQ(Program("no-engine").Output({"-lv"}), "");
}

TEST_F(EngineProgramTest, ReportsAnEngineThatIsNotThere) {
  EXPECT_THROW(Program("no-engine").Speak("hi", ArgumentsOf), SpeechError);
}

TEST_F(EngineProgramTest, ReportsAnEngineThatCrashes) {
  EXPECT_EQ(ErrorOf("crash"), fake_ + " crashed");
}

TEST_F(EngineProgramTest, StopsAnEngineThatHangs) {
  EXPECT_EQ(ErrorOf("hang", milliseconds(300)), fake_ + " did not come to an end and was stopped");
}

TEST_F(EngineProgramTest, ReportsAnEngineThatFails) {
  EXPECT_EQ(ErrorOf("fail"), fake_ + " failed with exit code 3");
}

TEST_F(EngineProgramTest, ReportsAnEngineThatWritesNothing) {
  EXPECT_EQ(ErrorOf("mute"), fake_ + " wrote no sound");
}

TEST_F(EngineProgramTest, ReportsAnEngineThatWritesGarbage) {
  EXPECT_EQ(ErrorOf("garbage"), fake_ + " wrote a file that cannot be used: It holds no sound");
}

TEST_F(EngineProgramTest, ReportsAnEngineThatWritesTooMuch) {
  EXPECT_EQ(ErrorOf("flood"), fake_ + " wrote too much sound");
}

TEST_F(EngineProgramTest, ReportsSilence) {
  EXPECT_EQ(ErrorOf("silence please"), fake_ + " gave only silence for \"silence please\"");
  EXPECT_EQ(ErrorOf("nothing"), fake_ + " gave only silence for \"nothing\"");
}

}  // namespace
}  // namespace repvolta
