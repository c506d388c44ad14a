#include <cmath>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <locale>
#include <sstream>

#include "platform/QtChildProcesses.h"
#include "speech/EngineSpeech.h"
#include "speech/SoundFormats.h"

#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::Gt;
using testing::Lt;

constexpr const char* kText =
    "Bench press, then the treadmill for five minutes, and stretch your back";

constexpr int kFormatOfTheClips = 14;

/// The installed engines, judged by sox.
class EngineSpeechJudged : public testing::Test {
 protected:
  void Speak(SpeechRequest request) {
    if (request.text.empty()) request.text = kText;
    request.file = "out.wav";
    speech_.SpeakToFile(request);
  }

  /// What sox says about out.wav.
  std::string Sox(const std::string& program, std::vector<std::string> arguments) {
    return processes_.Run({.program = program, .arguments = std::move(arguments)}).output;
  }

  double SoxNumber(const std::string& program, std::vector<std::string> arguments) {
    std::istringstream text(Sox(program, std::move(arguments)));
    text.imbue(std::locale::classic());
    double number = std::nan("");
    text >> number;
    return number;
  }

  double Seconds() { return SoxNumber("soxi", {"-D", "out.wav"}); }

  /// The root mean square of what is left of out.wav by the effects, full scale is 1.
  double Level(std::vector<std::string> effects) {
    std::vector<std::string> arguments = {"out.wav", "-t", "raw", "-e", "signed",
                                          "-b",      "16", "-c",  "1",  "-"};
    arguments.insert(arguments.end(), effects.begin(), effects.end());
    const std::string raw = Sox("sox", arguments);
    double sum = 0;
    for (std::size_t i = 0; i + 1 < raw.size(); i += 2) {
      const auto sample = static_cast<std::int16_t>(static_cast<unsigned char>(raw[i]) |
                                                    static_cast<unsigned char>(raw[i + 1]) << 8);
      sum += std::pow(sample / 32768.0, 2);
    }
    return std::sqrt(sum / (static_cast<double>(raw.size()) / 2));
  }

  int PositionOf(const std::string& voice) {
    const std::vector<std::string> names = speech_.VoiceNames();
    const auto found = std::find(names.begin(), names.end(), voice);
    EXPECT_NE(found, names.end()) << voice;
    return static_cast<int>(found - names.begin());
  }

  TemporaryFolder folder_;
  QtChildProcesses processes_;
  EngineSpeech speech_{InstalledEngines(processes_)};
};

TEST_F(EngineSpeechJudged, ListsTheVoiceOfTheClipsFirstAndBothEngines) {
  EXPECT_EQ(PositionOf("English (rms) - flite"), 0);
  EXPECT_EQ(PositionOf("English (slt) - flite"), 1);
  EXPECT_GE(PositionOf("English (America) - espeak-ng"), 4);
}

TEST_F(EngineSpeechJudged, EveryVoiceSpeaks) {
  const std::size_t count = speech_.VoiceNames().size();
  for (std::size_t voice = 0; voice < count; ++voice) {
    Speak({.text = "one two three", .voice = static_cast<int>(voice)});
    EXPECT_GT(Seconds(), 0.3) << voice;
  }
}

TEST_F(EngineSpeechJudged, WritesTheFormatsThatItNames) {
  for (std::size_t format = 0; format < kSoundFormats.size(); ++format) {
    const auto& [rate, bits, channels] = kSoundFormats[format].format;
    Speak({.text = "one", .format = static_cast<int>(format)});
    EXPECT_EQ(SoxNumber("soxi", {"-r", "out.wav"}), rate);
    EXPECT_EQ(SoxNumber("soxi", {"-b", "out.wav"}), bits);
    EXPECT_EQ(SoxNumber("soxi", {"-c", "out.wav"}), channels);
    EXPECT_EQ(Sox("soxi", {"-e", "out.wav"}),
              bits == 8 ? "Unsigned Integer PCM\n" : "Signed Integer PCM\n");
  }
}

TEST_F(EngineSpeechJudged, KeepsTheLengthInEveryFormat) {
  Speak({.format = kFormatOfTheClips});
  const double seconds = Seconds();
  for (int format = 0; format < std::ssize(kSoundFormats); format += 5) {
    Speak({.format = format});
    EXPECT_NEAR(Seconds(), seconds, 0.001) << format;
  }
}

TEST_F(EngineSpeechJudged, KeepsTheHighTonesThatTheRateCanHoldAndAddsNone) {
  Speak({.voice = PositionOf("English (America) - espeak-ng"), .format = 35});
  const double high = Level({"sinc", "5k-9k"});
  EXPECT_GT(high, 0.003);
  EXPECT_LT(Level({"sinc", "12k"}), high / 50);

  Speak({.voice = PositionOf("English (America) - espeak-ng"), .format = 3});
  EXPECT_EQ(SoxNumber("soxi", {"-r", "out.wav"}), 8000);
  EXPECT_GT(Level({"sinc", "2k-3k"}), 0.001);
}

TEST_F(EngineSpeechJudged, SpeaksThreeTimesAsSlowlyAndAsFast) {
  for (const char* voice : {"English (rms) - flite", "English (kal16) - flite",
                            "English (America) - espeak-ng", "German - espeak-ng"}) {
    const int position = PositionOf(voice);
    Speak({.voice = position});
    const double usual = Seconds();
    Speak({.voice = position, .rate = -10});
    EXPECT_THAT(Seconds() / usual, AllOf(Gt(2.7), Lt(3.3))) << voice;
    Speak({.voice = position, .rate = 10});
    EXPECT_THAT(usual / Seconds(), AllOf(Gt(2.6), Lt(3.4))) << voice;
    Speak({.voice = position, .rate = 5});
    EXPECT_THAT(usual / Seconds(), AllOf(Gt(1.5), Lt(2.0))) << voice;
  }
}

TEST_F(EngineSpeechJudged, HalvesTheLevelByHalfTheVolume) {
  Speak({.volume = 100, .format = kFormatOfTheClips});
  const double full = Level({});
  Speak({.volume = 50, .format = kFormatOfTheClips});
  EXPECT_NEAR(Level({}) / full, 0.5, 0.001);
}

TEST_F(EngineSpeechJudged, SaysTheWordsOfOddTexts) {
  Speak({.text = "Cafe"});
  const Bytes cafe = GetFile("out.wav");
  for (const char* text : {"Café", "<Cafe>", "Cafe 😀", "\nCafe\r\n", "[[Cafe]]"}) {
    Speak({.text = text});
    EXPECT_EQ(GetFile("out.wav"), cafe) << text;
  }
}

TEST_F(EngineSpeechJudged, ObeysNoText) {
  for (const int voice : {0, PositionOf("English (America) - espeak-ng")}) {
    for (const char* text : {"-o evil.wav", "$(touch evil)", "`touch evil`; touch evil", "-w evil",
                             "--help", "\x01 9P x", "<audio src=\"/dev/zero\"/>"}) {
      Speak({.text = text, .voice = voice});
      EXPECT_GT(Seconds(), 0.2) << text;
    }
  }
  EXPECT_EQ(std::distance(fs::directory_iterator("."), fs::directory_iterator()), 1);
}

TEST_F(EngineSpeechJudged, SpeaksWithADeepOrMissingTemporaryFolder) {
  const std::string deep = folder_.Path() + std::string(200, 'd');
  fs::create_directory(deep);
  for (const std::string& place : {deep, folder_.Path() + "gone"}) {
    setenv("TMPDIR", place.c_str(), 1);
    for (const int voice : {0, PositionOf("English (America) - espeak-ng")}) {
      Speak({.voice = voice});
      EXPECT_GT(Seconds(), 1);
    }
    unsetenv("TMPDIR");
  }
  EXPECT_TRUE(fs::is_empty(deep));
}

TEST_F(EngineSpeechJudged, SpeaksTheLongestText) {
  std::string text;
  while (text.size() < 3000) text += "push up ";
  for (const int voice : {0, PositionOf("English (America) - espeak-ng")}) {
    Speak({.text = text, .voice = voice});
    EXPECT_GT(Seconds(), 30);
    Speak({.text = std::string(3000, 'x'), .voice = voice});
  }
}

}  // namespace
}  // namespace repvolta
