#include "clips/Word.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <span>
#include <vector>

#include "clips/ClipSound.h"
#include "sound/RateReader.h"

namespace repvolta {
namespace {

constexpr std::size_t kWindow = 80;    // 5 ms
constexpr std::size_t kFadeOut = 320;  // 20 ms

// A word begins and ends where its level passes a threshold between these parts of its peak.
constexpr float kQuietest = 0.0126F;         // -38 dB
constexpr float kLoudestBackground = 0.04F;  // -28 dB
constexpr float kAboveBackground = 3;

std::size_t SampleCount(double seconds) {
  return static_cast<std::size_t>(std::lround(seconds * kClipFormat.rate));
}

/// A few milliseconds of sound, whose level depends on the offset of all of it.
struct Window {
  float mean;
  float power;  // of the difference from the mean

  float Level(float offset) const { return std::sqrt(power + (mean - offset) * (mean - offset)); }
};

Window WindowOf(std::span<const float> samples) {
  const auto count = static_cast<double>(samples.size());
  const double mean = std::accumulate(samples.begin(), samples.end(), 0.0) / count;
  const double power = std::accumulate(samples.begin(), samples.end(), 0.0,
                                       [mean](double sum, float sample) {
                                         return sum + (sample - mean) * (sample - mean);
                                       }) /
                       count;
  return {static_cast<float>(mean), static_cast<float>(power)};
}

/// What is kept of a recording while it is read.
class Measure {
 public:
  explicit Measure(std::size_t size) { windows_.reserve(size / kWindow + 1); }

  void Add(std::span<const float> samples) {
    for (const float sample : samples) Add(sample);
  }

  /// The last window includes the remainder.
  void End() {
    if (!open_.empty()) windows_.push_back(WindowOf(open_));
  }

  float Offset() const { return static_cast<float>(sum_ / static_cast<double>(count_)); }
  float Peak() const { return std::max(highest_ - Offset(), Offset() - lowest_); }
  std::size_t Count() const { return count_; }
  const std::vector<Window>& Windows() const { return windows_; }

 private:
  void Add(float sample) {
    sum_ += sample;
    highest_ = count_ == 0 ? sample : std::max(highest_, sample);
    lowest_ = count_ == 0 ? sample : std::min(lowest_, sample);
    ++count_;
    open_.push_back(sample);
    if (open_.size() < 2 * kWindow) return;
    windows_.push_back(WindowOf(std::span(open_).first(kWindow)));
    open_.erase(open_.begin(), open_.begin() + kWindow);
  }

  double sum_ = 0;
  float highest_ = 0;
  float lowest_ = 0;
  std::size_t count_ = 0;
  std::vector<float> open_;
  std::vector<Window> windows_;
};

Measure MeasureOf(const SoundSource& recording) {
  RateReader reader(recording, kClipFormat.rate);
  Measure measure(reader.Size());
  for (auto block = reader.Next(); !block.empty(); block = reader.Next()) measure.Add(block);
  measure.End();
  return measure;
}

float WordThreshold(const Measure& measure) {
  float background = measure.Peak();
  for (const Window& window : measure.Windows()) {
    background = std::min(background, window.Level(measure.Offset()));
  }
  return std::clamp(background * kAboveBackground, measure.Peak() * kQuietest,
                    measure.Peak() * kLoudestBackground);
}

/// Fades in over the part before the word and out over the first kFadeOut samples after it; the
/// rest becomes silent.
void FadeEdges(std::vector<float>& samples) {
  const std::size_t before = SampleCount(kSecondsBeforeWord);
  const std::size_t behind = SampleCount(kSecondsBehindWord);
  for (std::size_t i = 0; i < before; ++i) {
    samples[i] *= static_cast<float>(i) / static_cast<float>(before);
  }
  const std::size_t end = samples.size() - behind;
  for (std::size_t i = 0; i < behind; ++i) {
    const float left = 1 - static_cast<float>(i) / static_cast<float>(kFadeOut);
    samples[end + i] *= std::max(left, 0.0F);
  }
}

}  // namespace

std::optional<Word> FindWord(const SoundSource& recording) {
  const Measure measure = MeasureOf(recording);
  if (measure.Count() == 0 || measure.Peak() < kSilence) return std::nullopt;
  const float offset = measure.Offset();
  const auto isLoud = [offset, threshold = WordThreshold(measure)](const Window& window) {
    return window.Level(offset) >= threshold;
  };
  const std::vector<Window>& windows = measure.Windows();
  const auto first = std::find_if(windows.begin(), windows.end(), isLoud);
  const auto last = std::find_if(windows.rbegin(), windows.rend(), isLoud).base();
  const auto begin = static_cast<std::size_t>(first - windows.begin()) * kWindow;
  const auto end = static_cast<std::size_t>(last - windows.begin()) * kWindow;
  return Word{begin, last == windows.end() ? measure.Count() : end, offset};
}

double Seconds(const Word& word) {
  return static_cast<double>(word.end - word.begin) / kClipFormat.rate;
}

Sound CutWord(const SoundSource& recording, const Word& word) {
  const std::size_t before = SampleCount(kSecondsBeforeWord);
  const std::size_t behind = SampleCount(kSecondsBehindWord);
  Sound clip{kClipFormat.rate, std::vector<float>(before + (word.end - word.begin) + behind)};
  RateReader reader(recording, kClipFormat.rate);
  // In the recording with a clip's silence in front of it.
  std::size_t position = before;
  for (auto block = reader.Next(); !block.empty(); block = reader.Next()) {
    for (const float sample : block) {
      const bool isWanted = position >= word.begin && position - word.begin < clip.samples.size();
      if (isWanted) clip.samples[position - word.begin] = sample - word.offset;
      ++position;
    }
    if (position >= word.begin + clip.samples.size()) break;
  }
  FadeEdges(clip.samples);
  return clip;
}

Sound WordlessClip() {
  const std::size_t length = SampleCount(kSecondsBeforeWord) + SampleCount(kSecondsBehindWord);
  return {kClipFormat.rate, std::vector<float>(length)};
}

Sound TrimToWord(const Sound& recording) {
  const WholeSound source(recording);
  const std::optional<Word> word = FindWord(source);
  return word ? CutWord(source, *word) : Sound{kClipFormat.rate, {}};
}

}  // namespace repvolta
