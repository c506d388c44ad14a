#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/FileError.h"
#include "platform/QtChildProcesses.h"
#include "sound/WavReader.h"
#include "speech/EngineSpeech.h"
#include "speech/EspeakEngine.h"
#include "speech/FliteEngine.h"
#include "speech/SoundFormats.h"

#include "support/ProgramsBeside.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// Notes what is started.
class WatchedProcesses : public ChildProcesses {
 public:
  ChildResult Run(const ChildCommand& command) override {
    started.push_back(fs::path(command.program).filename().string() + " " +
                      command.arguments.at(0));
    return real_.Run(command);
  }

  std::vector<std::string> started;

 private:
  QtChildProcesses real_;
};

/// Both engines, played by the fake one, or not installed.
class EngineSpeechTest : public testing::Test {
 protected:
  EngineSpeech Speech(const std::string& flite, const std::string& espeak,
                      milliseconds limit = milliseconds(20000)) {
    SpeechEngines engines;
    engines.push_back(std::make_unique<FliteEngine>(EngineProgram(processes_, flite, limit)));
    engines.push_back(std::make_unique<EspeakEngine>(EngineProgram(processes_, espeak, limit)));
    return EngineSpeech(std::move(engines));
  }
  EngineSpeech BothEngines() { return Speech(fake_, fake_); }

  /// The error's text, or what was left instead of an error.
  std::string ErrorOf(EngineSpeech speech, const SpeechRequest& request) {
    try {
      speech.SpeakToFile(request);
    } catch (const SpeechError& error) {
      return FileIsThere() ? "a file was left" : error.what();
    }
    return "no error";
  }
  std::string ErrorOf(const std::string& text) {
    return ErrorOf(BothEngines(), {.text = text, .file = "out.wav"});
  }

  static bool FileIsThere() { return fs::exists("out.wav"); }

  TemporaryFolder folder_;
  const std::string fake_ = ProgramBeside("fake_engine");
  WatchedProcesses processes_;
};

using EngineSpeechVoices = EngineSpeechTest;

TEST_F(EngineSpeechVoices, AreTheGeneralOnesOfFliteThenThoseOfEspeak) {
  EXPECT_THAT(
      BothEngines().VoiceNames(),
      ElementsAre("English (rms) - flite", "English (slt) - flite", "English (kal16) - flite",
                  "Afrikaans - espeak-ng", "English (America) - espeak-ng"));
}

TEST_F(EngineSpeechVoices, AreThoseOfTheEngineThatIsThere) {
  EXPECT_THAT(Speech("no-flite", fake_).VoiceNames(),
              ElementsAre("Afrikaans - espeak-ng", "English (America) - espeak-ng"));
}

TEST_F(EngineSpeechVoices, AreNoneWithoutAnEngine) {
  EXPECT_THAT(Speech("no-flite", "no-espeak").VoiceNames(), IsEmpty());
}

TEST_F(EngineSpeechVoices, OfEspeakAreNotListedToSpeakWithOneOfFlite) {
  BothEngines().SpeakToFile({.text = "hi", .file = "out.wav", .voice = 1});
  EXPECT_THAT(processes_.started, ElementsAre("fake_engine -lv", "fake_engine -voice"));
}

TEST_F(EngineSpeechVoices, AreTakenByTheirPosition) {
  BothEngines().SpeakToFile({.text = "hi", .file = "out.wav", .voice = 1});
  EXPECT_THAT(GetTextFile("arguments"), HasSubstr("-voice\nslt\n"));

  BothEngines().SpeakToFile({.text = "hi", .file = "out.wav", .voice = 4});
  EXPECT_THAT(GetTextFile("arguments"), HasSubstr("-v\ngmw/en-US\n"));
}

TEST_F(EngineSpeechVoices, ThatDoNotExistAreAnError) {
  for (const int voice : {-1, 5, 32767}) {
    EXPECT_EQ(ErrorOf(BothEngines(), {.text = "hi", .file = "out.wav", .voice = voice}),
              "There is no speech voice number " + std::to_string(voice) +
                  "; is a speech engine installed?");
  }
}

TEST_F(EngineSpeechTest, NeverPutsTheTextOnACommandLine) {
  for (const int voice : {0, 4}) {
    BothEngines().SpeakToFile({.text = "-o secret words", .file = "out.wav", .voice = voice});
    EXPECT_THAT(GetTextFile("arguments"), Not(HasSubstr("secret")));
    EXPECT_EQ(ReadWav(GetFile("out.wav")).samples.size(), 800U * 15) << voice;
  }
}

TEST_F(EngineSpeechTest, TakesRatesAndVolumesBeyondTheRangeAsItsEnds) {
  BothEngines().SpeakToFile({.text = "hi", .file = "out.wav", .rate = 99, .volume = 900});
  EXPECT_THAT(GetTextFile("arguments"), HasSubstr("duration_stretch=0.333"));
  EXPECT_NEAR(Peak(ReadWav(GetFile("out.wav"))), 0.5, 0.01);
}

TEST_F(EngineSpeechTest, ScalesTheSamplesByTheVolume) {
  BothEngines().SpeakToFile({.text = "hi", .file = "out.wav", .volume = 70, .format = 2});
  EXPECT_NEAR(Peak(ReadWav(GetFile("out.wav"))), 0.35, 0.0001);
}

TEST_F(EngineSpeechTest, WritesSilenceByVolumeZero) {
  BothEngines().SpeakToFile({.text = "hi", .file = "out.wav", .volume = 0});
  EXPECT_EQ(Peak(ReadWav(GetFile("out.wav"))), 0);
}

TEST_F(EngineSpeechTest, WritesEveryFormat) {
  for (int format = 0; format < std::ssize(kSoundFormats); ++format) {
    BothEngines().SpeakToFile(
        {.text = "twenty letters of it", .file = "out.wav", .format = format});
    const WavFormat& wanted = kSoundFormats[static_cast<std::size_t>(format)].format;
    const Bytes file = GetFile("out.wav");
    const auto dataSize = static_cast<std::uint32_t>(file.size() - kWavHeaderSize);
    EXPECT_EQ(Bytes(file.begin(), file.begin() + kWavHeaderSize), WavHeader(wanted, dataSize));
    EXPECT_EQ(dataSize, wanted.rate * 2 * wanted.channels * wanted.bits / 8) << format;
    EXPECT_NEAR(Peak(ReadWav(file)), 0.5, 0.03) << format;
  }
}

TEST_F(EngineSpeechTest, RefusesFormatsThatDoNotExist) {
  EXPECT_EQ(ErrorOf(BothEngines(), {.text = "hi", .file = "out.wav", .format = 36}),
            "There is no sound format number 36");
  EXPECT_EQ(ErrorOf(BothEngines(), {.text = "hi", .file = "out.wav", .format = -1}),
            "There is no sound format number -1");
}

TEST_F(EngineSpeechTest, ReplacesAnExistingFile) {
  PutFile("out.wav", std::string(100000, 'x'));
  BothEngines().SpeakToFile({.text = "hi", .file = "out.wav", .format = 14});
  EXPECT_EQ(GetFile("out.wav").size(), kWavHeaderSize + 6400);
}

TEST_F(EngineSpeechTest, KeepsAnExistingFileWhenTheEngineFails) {
  PutFile("out.wav", "old");
  EXPECT_THROW(BothEngines().SpeakToFile({.text = "crash", .file = "out.wav"}), SpeechError);
  EXPECT_EQ(GetTextFile("out.wav"), "old");
}

TEST_F(EngineSpeechTest, SaysWhichFileCannotBeWritten) {
  EXPECT_THROW(BothEngines().SpeakToFile({.text = "hi", .file = "no/folder/out.wav"}), FileError);
}

TEST_F(EngineSpeechTest, LeavesNothingInTheTemporaryFolder) {
  fs::create_directory("tmp");
  setenv("TMPDIR", (folder_.Path() + "tmp").c_str(), 1);
  BothEngines().SpeakToFile({.text = "hi", .file = "out.wav"});
  ErrorOf("crash");
  unsetenv("TMPDIR");
  EXPECT_TRUE(fs::is_empty("tmp"));
}

TEST_F(EngineSpeechTest, ReportsTextsThatHaveNoSound) {
  for (const char* text : {"", "  ", "😀", "...", "腕立て伏せ"}) {
    EXPECT_EQ(ErrorOf(text), "There is nothing in the text that " + fake_ + " can say") << text;
  }
}

}  // namespace
}  // namespace repvolta
