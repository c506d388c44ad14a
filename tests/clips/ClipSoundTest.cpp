#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <random>

#include "clips/ClipSound.h"
#include "clips/Word.h"

namespace repvolta {
namespace {

constexpr std::size_t kBefore = 160;  // 10 ms
constexpr std::size_t kBehind = 960;  // 60 ms
constexpr std::size_t kWindow = 80;   // the precision with which a word's ends are found

/// A tone with something quieter before and after it.
class Recording {
 public:
  explicit Recording(std::uint32_t rate = 16000) : sound_{rate, {}} {}

  Recording& Tone(double seconds, float level) {
    return Add(seconds, [&](std::size_t i) {
      return level * static_cast<float>(std::sin(2 * std::numbers::pi * 440 *
                                                 static_cast<double>(i) / sound_.rate));
    });
  }
  Recording& Noise(double seconds, float level) {
    std::uniform_real_distribution<float> spread(-level, level);
    return Add(seconds, [&](std::size_t) { return spread(random_); });
  }
  Recording& Silence(double seconds) { return Noise(seconds, 0); }

  operator const Sound&() const { return sound_; }
  Sound& Get() { return sound_; }

 private:
  template <typename F>
  Recording& Add(double seconds, F sample) {
    const auto count = static_cast<std::size_t>(std::lround(seconds * sound_.rate));
    for (std::size_t i = 0; i < count; ++i) sound_.samples.push_back(sample(i));
    return *this;
  }

  Sound sound_;
  std::mt19937 random_{1};
};

/// The samples of a clip whose word is a tone of `seconds`, give or take a window at each end.
void ExpectWord(const Sound& clip, double seconds) {
  const auto expected = static_cast<std::size_t>(std::lround(seconds * 16000)) + kBefore + kBehind;
  EXPECT_NEAR(static_cast<double>(clip.samples.size()), static_cast<double>(expected), 2 * kWindow);
  EXPECT_EQ(clip.samples.back(), 0.0F);
  EXPECT_EQ(clip.samples.front(), 0.0F);
}

TEST(TrimToWord, CutsTheSilenceAroundTheWord) {
  ExpectWord(TrimToWord(Recording().Silence(0.5).Tone(0.3, 0.5F).Silence(0.7)), 0.3);
}

TEST(TrimToWord, AddsTheSilenceThatIsMissing) {
  const Sound clip = TrimToWord(Recording().Tone(0.3, 0.5F));
  EXPECT_EQ(clip.samples.size(), 4800 + kBefore + kBehind);
  for (std::size_t i = 0; i < kBefore; ++i) EXPECT_EQ(clip.samples[i], 0.0F) << i;
  for (std::size_t i = 4800 + kBefore; i < clip.samples.size(); ++i) {
    EXPECT_EQ(clip.samples[i], 0.0F) << i;
  }
}

TEST(TrimToWord, TakesTheBackgroundForSilence) {
  ExpectWord(TrimToWord(Recording().Noise(0.5, 0.01F).Tone(0.3, 0.5F).Noise(0.7, 0.01F)), 0.3);
}

TEST(TrimToWord, KeepsAPauseInsideTheWord) {
  ExpectWord(
      TrimToWord(
          Recording().Silence(0.2).Tone(0.2, 0.5F).Silence(0.1).Tone(0.2, 0.5F).Silence(0.2)),
      0.5);
}

TEST(TrimToWord, KeepsAQuietEnd) {
  ExpectWord(TrimToWord(Recording().Silence(0.2).Tone(0.2, 0.5F).Tone(0.1, 0.02F).Silence(0.2)),
             0.3);
}

TEST(TrimToWord, KeepsAQuietEndBeforeALoudBackground) {
  ExpectWord(
      TrimToWord(Recording().Noise(0.5, 0.02F).Tone(0.2, 0.5F).Tone(0.1, 0.035F).Noise(0.5, 0.02F)),
      0.3);
}

TEST(TrimToWord, CutsAnEndThatIsTooQuietToBeHeard) {
  ExpectWord(TrimToWord(Recording().Silence(0.2).Tone(0.2, 0.5F).Tone(0.1, 0.004F).Silence(0.2)),
             0.2);
}

TEST(TrimToWord, FadesTheBackgroundInAndWithin20MillisecondsOut) {
  const Sound clip = TrimToWord(Recording().Noise(0.5, 0.01F).Tone(0.3, 0.5F).Noise(0.7, 0.01F));
  const std::span<const float> samples = clip.samples;
  const auto behind = samples.last(kBehind);
  const auto loudest = [](std::span<const float> part) {
    return Peak({16000, {part.begin(), part.end()}});
  };
  EXPECT_GT(loudest(samples.subspan(kBefore - 40, 40)), 0.005F);
  EXPECT_LT(loudest(samples.first(16)), 0.0011F);
  EXPECT_GT(loudest(behind.first(80)), 0.005F);
  EXPECT_GT(loudest(behind.subspan(240, 40)), 0.0005F);
  EXPECT_EQ(loudest(behind.subspan(320)), 0.0F);
}

TEST(TrimToWord, TakesAQuietRecording) {
  ExpectWord(TrimToWord(Recording().Silence(0.5).Tone(0.3, 0.002F).Silence(0.5)), 0.3);
}

TEST(TrimToWord, ConvertsTheRate) {
  const Sound clip = TrimToWord(Recording(44100).Silence(0.5).Tone(0.3, 0.5F).Silence(0.5));
  EXPECT_EQ(clip.rate, 16000U);
  ExpectWord(clip, 0.3);
}

TEST(TrimToWord, RemovesAnOffset) {
  Sound recording = Recording().Silence(0.5).Tone(0.3, 0.3F).Silence(0.5);
  for (float& sample : recording.samples) sample += 0.2F;
  ExpectWord(TrimToWord(recording), 0.3);
}

TEST(TrimToWord, GivesNothingForSilence) {
  EXPECT_TRUE(TrimToWord(Recording()).samples.empty());
  EXPECT_TRUE(TrimToWord(Recording().Silence(1)).samples.empty());
  EXPECT_TRUE(TrimToWord(Recording().Noise(1, 5e-5F)).samples.empty());
}

TEST(TrimToWord, TakesAnythingShort) {
  for (int count = 1; count < 400; ++count) {
    const Sound clip =
        TrimToWord({16000, std::vector<float>(static_cast<std::size_t>(count), 0.0F)});
    EXPECT_TRUE(clip.samples.empty());
    ExpectWord(TrimToWord(Recording().Tone(count / 16000.0, 0.5F).Noise(0.0001, 0.5F)),
               count / 16000.0);
  }
}

TEST(TrimToWord, FadesWhatIsAroundTheWord) {
  constexpr std::size_t kFadeOut = 320;  // 20 ms
  constexpr std::size_t kWord = 4800;
  const Sound recording = Recording().Tone(0.5, 0.01F).Tone(0.3, 0.5F).Tone(0.5, 0.01F);
  const Sound clip = TrimToWord(recording);
  ASSERT_EQ(clip.samples.size(), kBefore + kWord + kBehind);
  for (std::size_t i = 0; i < kBefore; ++i) {
    const float share = static_cast<float>(i) / kBefore;
    EXPECT_NEAR(clip.samples[i], recording.samples[8000 - kBefore + i] * share, 1e-5) << i;
  }
  for (std::size_t i = 0; i < kBehind; ++i) {
    const float share = i < kFadeOut ? 1 - static_cast<float>(i) / kFadeOut : 0;
    const float heard = clip.samples[kBefore + kWord + i];
    EXPECT_NEAR(heard, recording.samples[8000 + kWord + i] * share, 1e-5) << i;
  }
}

TEST(TrimToWord, TakesForAWordWhatIsThreeTimesAsLoudAsTheBackground) {
  constexpr float kBackground = 0.0056F;
  const auto clipWithEnd = [](float timesBackground) {
    return TrimToWord(Recording()
                          .Tone(0.5, kBackground)
                          .Tone(0.2, 0.5F)
                          .Tone(0.1, kBackground * timesBackground)
                          .Tone(0.5, kBackground));
  };
  ExpectWord(clipWithEnd(3.3F), 0.3);
  ExpectWord(clipWithEnd(2.7F), 0.2);
}

TEST(TrimToWord, FindsAFaintWord) {
  ExpectWord(TrimToWord(Recording().Silence(0.2).Tone(0.3, 0.00015F).Silence(0.2)), 0.3);
}

TEST(LimitPeaks, LeavesAQuietSoundAlone) {
  Sound sound = Recording().Tone(0.1, 0.8F);
  const std::vector<float> before = sound.samples;
  LimitPeaks(sound);
  EXPECT_EQ(sound.samples, before);
}

TEST(LimitPeaks, TurnsDownOnlyAroundThePeak) {
  Sound sound = Recording().Tone(0.1, 0.4F).Tone(0.02, 1.6F).Tone(0.1, 0.4F);
  const Sound before = sound;

  LimitPeaks(sound);

  EXPECT_LE(Peak(sound), kClipPeak);
  EXPECT_GT(Peak(sound), 0.8F);
  EXPECT_EQ(sound.samples[1000], before.samples[1000]);
  EXPECT_EQ(sound.samples[2500], before.samples[2500]);
}

TEST(LimitPeaks, ChangesTheGainWithoutAJump) {
  Sound sound{16000, std::vector<float>(1000, 0.5F)};
  sound.samples[500] = 5;
  LimitPeaks(sound);
  EXPECT_LE(Peak(sound), kClipPeak);
  sound.samples[500] = sound.samples[499];
  for (std::size_t i = 1; i < 1000; ++i) {
    EXPECT_NEAR(sound.samples[i], sound.samples[i - 1], 0.02) << i;
  }
}

TEST(LimitPeaks, TurnsDownSixMillisecondsOnEachSide) {
  constexpr std::size_t kReach = 96;
  Sound sound{16000, std::vector<float>(1000, 0.5F)};
  sound.samples[500] = 5;
  LimitPeaks(sound);
  for (const std::size_t distance : {kReach, kReach / 2 + 1}) {
    EXPECT_LT(sound.samples[500 - distance], 0.5F) << distance;
    EXPECT_LT(sound.samples[500 + distance], 0.5F) << distance;
  }
  EXPECT_EQ(sound.samples[500 - kReach - 1], 0.5F);
  EXPECT_EQ(sound.samples[500 + kReach + 1], 0.5F);
  EXPECT_NEAR(sound.samples[500], kClipPeak, 1e-5);
}

TEST(LimitPeaks, ReachesOverTheEndsOfAShortSound) {
  Sound sound{16000, {0.5F, 5, 0.5F}};
  LimitPeaks(sound);
  for (const std::size_t i : {0U, 2U}) EXPECT_NEAR(sound.samples[i], 0.5F * kClipPeak / 5, 1e-5);
  EXPECT_NEAR(sound.samples[1], kClipPeak, 1e-5);
}

TEST(JoinedLoudness, FollowsTheLevel) {
  const std::vector<Sound> loud = {Recording().Tone(0.2, 0.5F)};
  const std::vector<Sound> quiet = {Recording().Tone(0.2, 0.05F)};
  EXPECT_NEAR(JoinedLoudness(loud) - JoinedLoudness(quiet), 20, 0.1);
}

TEST(JoinedLoudness, IsThatOfTheMeasuresOwnReference) {
  // By its definition a full-scale tone of 997 Hz in one channel has -3.01 LUFS.
  Sound tone{16000, std::vector<float>(48000)};
  for (std::size_t i = 0; i < tone.samples.size(); ++i) {
    tone.samples[i] =
        static_cast<float>(std::sin(2 * std::numbers::pi * 997 * static_cast<double>(i) / 16000));
  }
  EXPECT_NEAR(JoinedLoudness(std::vector<Sound>{tone}), -3.01, 0.1);
}

TEST(JoinedLoudness, OfNothingIsMinusInfinity) {
  EXPECT_EQ(JoinedLoudness({}), -INFINITY);
  EXPECT_EQ(JoinedLoudness(std::vector<Sound>{Sound{16000, {}}}), -INFINITY);
}

TEST(LevelClips, BringsTheSetToTheWantedLoudness) {
  std::vector<Sound> clips = {Recording().Tone(0.3, 0.1F), Recording().Tone(0.3, 0.025F)};
  LevelClips(clips);
  EXPECT_NEAR(JoinedLoudness(clips), kClipLoudness, 0.1);
}

TEST(LevelClips, GoesTheLastHalfDecibel) {
  std::vector<Sound> clips = {Recording().Tone(0.3, 0.1F)};
  const double missing = kClipLoudness - JoinedLoudness(clips);
  Scale(clips[0], static_cast<float>(std::pow(10, (missing + 2) / 20)));
  LevelClips(clips);
  EXPECT_NEAR(JoinedLoudness(clips), kClipLoudness, 0.1);
}

TEST(LevelClips, LeavesAQuarterOfTheDifferenceBetweenClips) {
  std::vector<Sound> clips = {Recording().Tone(0.3, 0.1F), Recording().Tone(0.3, 0.025F)};
  LevelClips(clips);
  EXPECT_NEAR(20 * std::log10(Peak(clips[0]) / Peak(clips[1])), 12.04 / 4, 0.1);
}

TEST(LevelClips, MakesUpForWhatTheLimiterTakes) {
  Sound spiky = Recording().Tone(0.5, 0.02F);
  for (std::size_t i = 0; i < spiky.samples.size(); i += 2000) spiky.samples[i] = 0.3F;
  std::vector<Sound> clips = {spiky};
  LevelClips(clips);
  EXPECT_NEAR(JoinedLoudness(clips), kClipLoudness, 0.1);
  EXPECT_LE(Peak(clips[0]), kClipPeak);
}

TEST(LevelClips, LeavesSilenceAlone) {
  std::vector<Sound> clips = {Recording().Silence(0.5)};
  LevelClips(clips);
  EXPECT_EQ(Peak(clips[0]), 0);
}

}  // namespace
}  // namespace repvolta
