#include "clips/WordWatch.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace repvolta {
namespace {

// All lengths are counted in windows, of which a second has so many.
constexpr std::uint32_t kWindowsPerSecond = 100;
/// Long enough to hear the room, and for the sound of the key that started the take.
constexpr std::size_t kRoom = 30;
/// Between "four" and "hundred" somebody who reads may pause for half a second.
constexpr std::size_t kPause = 70;
constexpr std::size_t kLongestWait = 600;
constexpr std::size_t kLongestTake = std::size_t{WordWatch::kLongest} * kWindowsPerSecond;
constexpr std::size_t kDeadInput = 250;
/// Half a step of 16 bits. Even in a very quiet room the last bit of an input changes.
constexpr float kNoSound = 1.5e-5F;

// Something sounds where its level passes all of these.
constexpr float kQuietestSound = 6e-4F;    // -64 dBFS
constexpr float kAboveBackground = 2.5F;   // 8 dB; a steady noise varies by 3
constexpr float kPartOfLoudest = 0.0126F;  // -38 dB, as where a clip is cut
/// One window of so many is quieter than the background. Even in a word that lasts nearly all the
/// time so many are quiet, between its sounds.
constexpr std::ptrdiff_t kBackgroundShare = 10;

/// What is shorter and that far from all other sounds is a click and no word.
constexpr std::size_t kShortestWord = 12;
constexpr std::size_t kFarFromOthers = 30;
/// What is shorter and in the first moment is the key, if it is quiet behind it for a while.
constexpr std::size_t kLongestKey = 12;
constexpr std::size_t kQuietBehindKey = 5;

float Threshold(const std::vector<float>& levels) {
  std::vector<float> sorted = levels;
  const auto background = sorted.begin() + std::ssize(sorted) / kBackgroundShare;
  std::ranges::nth_element(sorted, background);
  const float loudest = *std::ranges::max_element(levels);
  return std::max({kQuietestSound, *background * kAboveBackground, loudest * kPartOfLoudest});
}

/// Where something sounds, without a break.
std::vector<SoundSpan> SoundsIn(const std::vector<float>& levels) {
  const float threshold = Threshold(levels);
  std::vector<SoundSpan> sounds;
  for (std::size_t i = 0; i < levels.size(); ++i) {
    if (levels[i] < threshold) continue;
    if (!sounds.empty() && sounds.back().end == i) {
      ++sounds.back().end;
    } else {
      sounds.push_back({i, i + 1});
    }
  }
  return sounds;
}

bool IsKey(const SoundSpan& sound, std::size_t next) {
  return sound.begin < kRoom && sound.end - sound.begin <= kLongestKey &&
         next - sound.end >= kQuietBehindKey;
}

/// A number of sounds that may be one word, and how long they are without the breaks.
struct Group {
  SoundSpan all;
  std::size_t sounding;
};

std::vector<Group> GroupsIn(const std::vector<float>& levels) {
  const std::vector<SoundSpan> sounds = SoundsIn(levels);
  std::vector<Group> groups;
  for (std::size_t i = 0; i < sounds.size(); ++i) {
    const SoundSpan& sound = sounds[i];
    if (IsKey(sound, i + 1 < sounds.size() ? sounds[i + 1].begin : levels.size())) continue;
    if (groups.empty() || sound.begin - groups.back().all.end >= kFarFromOthers) {
      groups.push_back({{sound.begin, sound.begin}, 0});
    }
    groups.back().all.end = sound.end;
    groups.back().sounding += sound.end - sound.begin;
  }
  return groups;
}

/// From the first sound that is no click to the last one.
std::optional<SoundSpan> WordIn(const std::vector<float>& levels) {
  std::optional<SoundSpan> word;
  for (const Group& group : GroupsIn(levels)) {
    if (group.sounding < kShortestWord) continue;
    if (!word) word = group.all;
    word->end = group.all.end;
  }
  return word;
}

}  // namespace

WordWatch::WordWatch(std::uint32_t rate) : windowSize_(rate / kWindowsPerSecond), filter_(rate) {}

void WordWatch::Add(std::span<const float> samples) {
  for (const float sample : samples) {
    if (end_ != TakeEnd::kNotYet) return;
    Add(sample);
  }
}

void WordWatch::Add(float sample) {
  peak_ = std::max(peak_, std::abs(sample));
  const float voice = filter_.Next(sample);
  power_ += voice * voice;
  if (++inWindow_ == windowSize_) EndWindow();
}

void WordWatch::EndWindow() {
  powers_[levels_.size() % kSmoothed] = power_ / static_cast<double>(windowSize_);
  inWindow_ = 0;
  power_ = 0;
  const double recent = std::accumulate(powers_.begin(), powers_.end(), 0.0) / kSmoothed;
  levels_.push_back(static_cast<float>(std::sqrt(recent)));
  word_ = WordIn(levels_);
  end_ = EndSoFar();
}

TakeEnd WordWatch::EndSoFar() const {
  const std::size_t now = levels_.size();
  if (word_ && now - word_->end >= kPause) return TakeEnd::kPause;
  if (word_ && now >= kLongestTake) return TakeEnd::kTooLong;
  if (peak_ < kNoSound && now >= kDeadInput) return TakeEnd::kNoSound;
  if (!word_ && now >= kLongestWait) return TakeEnd::kNothingHeard;
  return TakeEnd::kNotYet;
}

void WordWatch::Stop() {
  if (end_ == TakeEnd::kNotYet) end_ = TakeEnd::kStopped;
}

TakeStage WordWatch::Stage() const {
  if (end_ != TakeEnd::kNotYet) return TakeStage::kEnded;
  if (word_) return TakeStage::kWord;
  return levels_.size() < kRoom ? TakeStage::kRoom : TakeStage::kWaiting;
}

std::optional<SoundSpan> WordWatch::Word() const {
  if (!word_) return std::nullopt;
  // The last windows were loud only by those before them.
  return SoundSpan{word_->begin * windowSize_, (word_->end - (kSmoothed - 1)) * windowSize_};
}

}  // namespace repvolta
