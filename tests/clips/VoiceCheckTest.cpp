#include <algorithm>
#include <cmath>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/FileError.h"
#include "clips/ClipChecks.h"
#include "clips/VoiceCheck.h"
#include "clips/Word.h"
#include "clips/WordClips.h"

#include "support/UnreadableFile.h"
#include "support/WavBytes.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

/// A clip of half a second.
Sound Tone(float level) {
  Sound tone{16000, std::vector<float>(8000)};
  for (std::size_t i = 0; i < tone.samples.size(); ++i) {
    tone.samples[i] = level * std::sin(0.3F * static_cast<float>(i));
  }
  return tone;
}

void PutSound(const std::string& file, const Sound& sound,
              const WavFormat& format = {.rate = 16000, .bits = 16, .channels = 1}) {
  const Bytes wav = EncodeWav(sound, format);
  PutFile(file, std::string(wav.begin(), wav.end()));
}

/// A whole voice whose clips are equally loud.
class CheckOfAVoice : public testing::Test {
 protected:
  CheckOfAVoice() {
    for (const std::string& word : WordClips()) PutSound("voice/" + word, Tone(0.2F));
    PutSound("voice/exercise/Squat.WAV", Tone(0.2F));
  }

  /// Each as "set.wav is missing".
  static std::vector<std::string> Findings() {
    std::vector<std::string> lines;
    for (const ClipFinding& finding : CheckVoice("voice").findings) {
      lines.push_back(finding.file + " " + finding.words);
    }
    return lines;
  }

  static ClipFault OnlyFault() {
    const VoiceCheck check = CheckVoice("voice");
    EXPECT_EQ(check.findings.size(), 1U);
    return check.findings.at(0).fault;
  }

  TemporaryFolder folder_;
};

TEST_F(CheckOfAVoice, FindsNothingWhereAllIsWell) {
  const VoiceCheck check = CheckVoice("voice");
  EXPECT_THAT(check.findings, IsEmpty());
  EXPECT_EQ(check.words, 59U);
  EXPECT_EQ(check.names, 1U);
  EXPECT_NEAR(check.loudness, JoinedLoudness(std::vector<Sound>{Tone(0.2F)}), 0.1);
}

TEST_F(CheckOfAVoice, NamesWhatIsMissing) {
  fs::remove("voice/point.wav");
  EXPECT_EQ(OnlyFault(), ClipFault::kMissing);
  EXPECT_THAT(Findings(), ElementsAre("point.wav is missing"));
  EXPECT_EQ(CheckVoice("voice").words, 58U);
}

TEST_F(CheckOfAVoice, TakesAFileWhateverTheCaseOfItsName) {
  fs::rename("voice/point.wav", "voice/POINT.WAV");
  EXPECT_THAT(Findings(), IsEmpty());
}

TEST_F(CheckOfAVoice, NeedsNoNames) {
  fs::remove_all("voice/exercise");
  EXPECT_THAT(Findings(), IsEmpty());
  EXPECT_EQ(CheckVoice("voice").names, 0U);
}

TEST_F(CheckOfAVoice, NamesWhatIsNoWavFile) {
  PutFile("voice/set.wav", "ID3");
  EXPECT_EQ(OnlyFault(), ClipFault::kNoWav);
  EXPECT_THAT(Findings(), ElementsAre("set.wav cannot be used: It is no WAV file"));
}

TEST_F(CheckOfAVoice, NamesWhatCannotBeJoinedToTheOthers) {
  PutSound("voice/set.wav", Tone(0.2F), {.rate = 44100, .bits = 16, .channels = 1});
  PutSound("voice/exercise/Squat.WAV", Tone(0.2F), {.rate = 16000, .bits = 16, .channels = 2});
  EXPECT_THAT(
      Findings(),
      ElementsAre("set.wav is not in the format of a clip; \"repvolta-voice convert\" makes "
                  "one of it",
                  "exercise/Squat.WAV is not in the format of a clip; \"repvolta-voice "
                  "convert\" makes one of it"));
}

TEST_F(CheckOfAVoice, NamesAHeaderOfAnotherLength) {
  const Bytes file = WavBytes().Format(1, 16000, 16).Samples16({0, 9000, 0, -9000}).Get();
  PutFile("voice/set.wav", std::string(file.begin(), file.end()));
  EXPECT_EQ(OnlyFault(), ClipFault::kOtherFormat);
}

TEST_F(CheckOfAVoice, TakesAClipWhoseSizesAreThoseOfAJoinedOne) {
  std::string file = GetTextFile("voice/set.wav");
  --file[kDataSizeOffset];
  PutFile("voice/set.wav", file);
  EXPECT_THAT(Findings(), IsEmpty());
}

TEST_F(CheckOfAVoice, NamesSilenceButNotAClipThatIsMeantToSayNothing) {
  PutSound("voice/set.wav", {16000, std::vector<float>(8000)});
  PutSound("voice/and.wav", WordlessClip());
  EXPECT_EQ(OnlyFault(), ClipFault::kSilent);
  EXPECT_THAT(Findings(), ElementsAre("set.wav has only silence"));
}

TEST_F(CheckOfAVoice, NamesAClipWithoutASound) {
  PutSound("voice/set.wav", {16000, {}});
  EXPECT_EQ(OnlyFault(), ClipFault::kSilent);
}

TEST_F(CheckOfAVoice, NamesWhatIsUnlikeTheOthers) {
  PutSound("voice/set.wav", Tone(0.4F));
  PutSound("voice/for.wav", Tone(0.1F));
  PutSound("voice/reps.wav", Tone(0.3F));
  EXPECT_THAT(Findings(), ElementsAre("set.wav is louder than the other clips by 6 dB",
                                      "for.wav is quieter than the other clips by 6 dB"));
}

TEST_F(CheckOfAVoice, TakesAnyLoudnessThatAllHave) {
  for (const std::string& word : WordClips()) PutSound("voice/" + word, Tone(0.7F));
  PutSound("voice/exercise/Squat.WAV", Tone(0.7F));
  EXPECT_THAT(Findings(), IsEmpty());
}

TEST_F(CheckOfAVoice, NamesWhatWasRecordedTooLoud) {
  Sound clipped = Tone(0.2F);
  std::fill_n(clipped.samples.begin() + 100, 3, -1.0F);
  PutSound("voice/set.wav", clipped);
  EXPECT_EQ(OnlyFault(), ClipFault::kClipped);
}

TEST_F(CheckOfAVoice, LetsASinglePeakReachTheEdge) {
  Sound peak = Tone(0.2F);
  std::fill_n(peak.samples.begin() + 100, 2, 1.0F);
  PutSound("voice/set.wav", peak);
  EXPECT_THAT(Findings(), IsEmpty());
}

TEST_F(CheckOfAVoice, NamesWhatIsTooLongForAWord) {
  fs::resize_file("voice/set.wav", 5 * 1024 * 1024);
  EXPECT_EQ(OnlyFault(), ClipFault::kTooLong);
}

TEST_F(CheckOfAVoice, NamesWhatCannotBeRead) {
  const UnreadableFile unreadable("voice/set.wav");
  EXPECT_EQ(OnlyFault(), ClipFault::kUnreadable);
  EXPECT_THAT(Findings(), ElementsAre("set.wav could not be read: Permission denied"));
}

TEST_F(CheckOfAVoice, NeedsAFolder) { EXPECT_THROW(CheckVoice("gone"), FileError); }

TEST_F(CheckOfAVoice, HasNoLoudnessWhereNothingIsHeard) {
  fs::create_directory("empty");
  const VoiceCheck check = CheckVoice("empty");
  EXPECT_EQ(check.loudness, -INFINITY);
  EXPECT_EQ(check.findings.size(), 59U);
  EXPECT_EQ(check.words, 0U);
}

}  // namespace
}  // namespace repvolta
