#include <cmath>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

#include "clips/ClipChecks.h"
#include "clips/VoiceCommand.h"
#include "clips/WordClips.h"
#include "sound/WavReader.h"

#include "support/WavBytes.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* kUsage =
    "usage: repvolta-voice make [--engine ENGINE] [--voice VOICE] WORDS FOLDER [NAMES ...]\n"
    "       repvolta-voice convert RECORDING CLIP\n"
    "       repvolta-voice check FOLDER\n"
    "       repvolta-voice voices\n"
    "\n"
    "make     speaks the clips of the word list WORDS (a line: clip name, words) into\n"
    "         FOLDER, and those of the exercise name lists NAMES (a line: a name) into\n"
    "         FOLDER/exercise\n"
    "convert  makes a clip of a WAV recording of any format: silence trimmed, 16 kHz,\n"
    "         16 bit, mono, as loud as the other clips\n"
    "check    tells what is missing in the clips of FOLDER or unlike the others\n"
    "voices   lists the voices that VOICE can be\n";

class VoiceCommand : public testing::Test {
 protected:
  int Run(const std::vector<std::string>& arguments) {
    return RunVoiceCommand(arguments, {{"flite", &engine_}, {"espeak-ng", &espeak_}}, output_,
                           errors_);
  }

  void ExpectFailure(const std::vector<std::string>& arguments, const std::string& message) {
    EXPECT_EQ(Run(arguments), 1);
    EXPECT_EQ(errors_.str(), "repvolta-voice: " + message + "\n");
    EXPECT_THAT(output_.str(), IsEmpty());
  }

  static std::vector<std::string> ClipsIn(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
      if (entry.is_regular_file()) names.push_back(fs::relative(entry.path(), folder));
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  TemporaryFolder folder_;
  ToneEngine engine_;  // in place of flite
  ToneEngine espeak_;
  std::ostringstream output_;
  std::ostringstream errors_;
};

TEST_F(VoiceCommand, MakesTheClipsOfTheLists) {
  PutFile("words", "300 three hundred\nset set\n");
  PutFile("a.lst", "Bench Press\nPush Up\n");
  PutFile("b.lst", "Push Up\nSquat\n");

  EXPECT_EQ(Run({"make", "words", "out/voice", "a.lst", "b.lst"}), 0);

  EXPECT_THAT(ClipsIn("out/voice"),
              ElementsAre("300.wav", "exercise/Bench Press.WAV", "exercise/Push Up.WAV",
                          "exercise/Squat.WAV", "set.wav"));
  EXPECT_THAT(engine_.spoken, ElementsAre("rms: three hundred", "rms: set", "rms: Bench Press",
                                          "rms: Push Up", "rms: Squat"));
  EXPECT_EQ(output_.str(), "5 clips made in out/voice\n");
  ExpectClip("out/voice/300.wav");
  ExpectClip("out/voice/exercise/Squat.WAV");
}

TEST_F(VoiceCommand, MakesClipsWithoutNameLists) {
  PutFile("words", "set set\n");
  EXPECT_EQ(Run({"make", "words", "voice"}), 0);
  EXPECT_THAT(ClipsIn("voice"), ElementsAre("set.wav"));
}

TEST_F(VoiceCommand, MakesClipsWithTheWantedVoice) {
  espeak_.voices = {{"Afrikaans - espeak-ng", "gmw/af"}, {"German - espeak-ng", "gmw/de"}};
  PutFile("words", "set\tSatz\n");
  EXPECT_EQ(Run({"make", "--voice", "de", "words", "voice"}), 0);
  EXPECT_EQ(Run({"make", "--engine", "espeak-ng", "--voice", "af", "words", "voice"}), 0);
  EXPECT_EQ(Run({"make", "--engine", "flite", "words", "voice"}), 0);
  EXPECT_THAT(espeak_.spoken, ElementsAre("gmw/de: Satz", "gmw/af: Satz"));
  EXPECT_THAT(engine_.spoken, ElementsAre("rms: Satz"));
}

TEST_F(VoiceCommand, WritesNothingWithoutTheWantedVoice) {
  PutFile("words", "set\tSatz\n");
  ExpectFailure({"make", "--voice", "de", "words", "voice"},
                "there is no voice \"de\"; \"repvolta-voice voices\" lists all");
  EXPECT_FALSE(fs::exists("voice"));
}

TEST_F(VoiceCommand, TellsWhatIsOddAboutAWordListAndMakesItsClips) {
  PutFile("words", "1 one\nsett set\n");
  EXPECT_EQ(Run({"make", "words", "voice"}), 0);
  EXPECT_THAT(errors_.str(),
              StartsWith("repvolta-voice: words, line 2: \"sett\" is said by no exercise\n"
                         "repvolta-voice: words has no words for 2, 3, "));
  EXPECT_EQ(output_.str(), "2 clips made in voice\n");
}

TEST_F(VoiceCommand, SaysANameAsTheWordListHasIt) {
  PutFile("words", "exercise/Bench Press\tBankdrücken\n");
  PutFile("a.lst", "Bench Press\nSquat\n");
  EXPECT_EQ(Run({"make", "words", "voice", "a.lst"}), 0);
  EXPECT_THAT(engine_.spoken, ElementsAre("rms: Bankdrücken", "rms: Squat"));
  EXPECT_THAT(ClipsIn("voice"), ElementsAre("exercise/Bench Press.WAV", "exercise/Squat.WAV"));
}

TEST_F(VoiceCommand, ListsTheVoices) {
  engine_.voices = {{"English (rms) - flite", "rms"}};
  espeak_.voices = {{"Spanish (Latin America) - espeak-ng", "roa/es-419"}};
  EXPECT_EQ(Run({"voices"}), 0);
  EXPECT_EQ(output_.str(),
            "rms              English (rms) - flite\n"
            "es-419           Spanish (Latin America) - espeak-ng\n");
}

TEST_F(VoiceCommand, ReportsThatThereIsNoVoiceAtAll) {
  engine_.voices.clear();
  espeak_.voices.clear();
  ExpectFailure({"voices"}, "no speech engine is installed");
}

TEST_F(VoiceCommand, TellsTheFaultsOfAVoice) {
  PutFile("words", "set set\n");
  Run({"make", "words", "voice"});
  output_.str("");
  errors_.str("");
  EXPECT_EQ(Run({"check", "voice"}), 1);
  EXPECT_THAT(output_.str(), StartsWith("1.wav is missing\n2.wav is missing\n"));
  EXPECT_THAT(output_.str(), EndsWith("1 words and 0 names, at -18 LUFS: 58 faults\n"));
  EXPECT_THAT(errors_.str(), IsEmpty());
}

TEST_F(VoiceCommand, TellsThatAVoiceIsWhole) {
  std::string list;
  for (const std::string& file : WordClips()) {
    list += file.substr(0, file.size() - 4) + (file == "and.wav" ? " -\n" : " word\n");
  }
  PutFile("words", list);
  Run({"make", "words", "voice"});
  output_.str("");
  EXPECT_EQ(Run({"check", "voice"}), 0);
  EXPECT_EQ(output_.str(), "59 words and 0 names, at -18 LUFS: all is well\n");
}

TEST_F(VoiceCommand, ReportsAFolderOfClipsThatIsMissing) {
  ExpectFailure({"check", "gone"}, "gone could not be read: No such file or directory");
}

TEST_F(VoiceCommand, ReportsAMissingWordList) {
  ExpectFailure({"make", "gone", "voice"}, "gone could not be read: No such file or directory");
}

TEST_F(VoiceCommand, ShowsNoControlCharactersOfNames) {
  ExpectFailure({"make", "go\x1B[2Jne\n", "voice"},
                "go?[2Jne? could not be read: No such file or directory");
}

TEST_F(VoiceCommand, ShowsNoControlCharactersOfTheFolder) {
  PutFile("words", "set set\n");
  EXPECT_EQ(Run({"make", "words", "voi\x1B[2Jce"}), 0);
  EXPECT_EQ(output_.str(), "1 clips made in voi?[2Jce\n");
}

TEST_F(VoiceCommand, ReportsAMissingVoice) {
  PutFile("words", "set set\n");
  engine_.voices.clear();
  ExpectFailure({"make", "words", "voice"}, "no voice of flite is installed");
}

TEST_F(VoiceCommand, WritesNothingWhenAClipCannotBeSpoken) {
  PutFile("words", "set set\nfor trouble\n");
  ExpectFailure({"make", "words", "voice"}, "flite crashed");
  EXPECT_FALSE(fs::exists("voice"));
}

TEST_F(VoiceCommand, ReportsAClipWithoutASound) {
  PutFile("words", "set silence\n");
  ExpectFailure({"make", "words", "voice"}, "set.wav has only silence");
}

TEST_F(VoiceCommand, ReportsAFolderThatCannotBeCreated) {
  PutFile("words", "set set\n");
  PutFile("voice", "in the way");
  EXPECT_EQ(Run({"make", "words", "voice"}), 1);
  EXPECT_THAT(errors_.str(), StartsWith("repvolta-voice: voice"));
  EXPECT_THAT(errors_.str(), HasSubstr(" could not be created: "));
}

TEST_F(VoiceCommand, ConvertsARecordingOfAnotherFormat) {
  WavBytes recording;
  recording.Format(2, 44100, 16).Text("data").U32(44100 * 4);
  for (int i = 0; i < 44100; ++i) {
    const bool sounds = i > 10000 && i < 30000;
    const int level = sounds ? static_cast<int>(2000 * std::sin(0.05 * i)) : 0;
    recording.U16(static_cast<std::uint16_t>(level)).U16(static_cast<std::uint16_t>(level));
  }
  PutFile("recording.wav", recording.Get());
  PutFile("set.wav", "an older clip");

  EXPECT_EQ(Run({"convert", "recording.wav", "set.wav"}), 0);

  ExpectClip("set.wav");
  EXPECT_NEAR(static_cast<double>(ReadWav(GetFile("set.wav")).samples.size()) / 16000,
              20000 / 44100.0 + 0.07, 0.01);
}

TEST_F(VoiceCommand, ReportsASilentRecording) {
  PutFile("recording.wav", WavBytes().Format(1, 16000, 16).Samples16({0, 0, 0}).Get());
  ExpectFailure({"convert", "recording.wav", "set.wav"}, "recording.wav has only silence");
}

TEST_F(VoiceCommand, ReportsARecordingThatIsMoreThanAWord) {
  constexpr std::uint32_t kTooLong = 121000;
  WavBytes recording;
  recording.Format(1, 1000, 8).Text("data").U32(kTooLong);
  for (std::uint32_t i = 0; i < kTooLong; ++i) recording.Text(i / 10 % 2 == 0 ? "\x60" : "\xA0");
  PutFile("recording.wav", recording.Get());
  PutFile("set.wav", "an older clip");
  ExpectFailure({"convert", "recording.wav", "set.wav"},
                "recording.wav cannot be used: From the first to the last sound it lasts longer "
                "than two minutes");
  EXPECT_EQ(GetTextFile("set.wav"), "an older clip");
}

TEST_F(VoiceCommand, ReportsARecordingThatIsNone) {
  PutFile("song.mp3", "ID3");
  ExpectFailure({"convert", "song.mp3", "set.wav"}, "song.mp3 cannot be used: It is no WAV file");
}

TEST_F(VoiceCommand, ReportsAMissingRecording) {
  ExpectFailure({"convert", "gone.wav", "set.wav"},
                "gone.wav could not be read: No such file or directory");
}

TEST_F(VoiceCommand, ShowsItsUsageWhenItIsNotCalledRightly) {
  for (const std::vector<std::string>& arguments :
       std::vector<std::vector<std::string>>{{},
                                             {"make"},
                                             {"make", "words"},
                                             {"convert", "a.wav"},
                                             {"convert", "a.wav", "b.wav", "c.wav"},
                                             {"speak", "a", "b"},
                                             {"make", "--voice", "words", "voice"},
                                             {"make", "--engine", "", "words", "voice"},
                                             {"convert", "--voice", "de", "a.wav", "b.wav"},
                                             {"check"},
                                             {"check", "a", "b"},
                                             {"voices", "de"},
                                             {"--help", "make"},
                                             {"--make", "a", "b"}}) {
    errors_.str("");
    EXPECT_EQ(Run(arguments), 2);
    EXPECT_EQ(errors_.str(), std::string("repvolta-voice: ") +
                                 (arguments.empty() ? "nothing to do" : "not called rightly") +
                                 "\n" + kUsage);
  }
  EXPECT_THAT(output_.str(), IsEmpty());
}

TEST_F(VoiceCommand, ShowsItsUsageWhenAsked) {
  EXPECT_EQ(Run({"--help"}), 0);
  EXPECT_EQ(output_.str(), kUsage);
}

}  // namespace
}  // namespace repvolta
