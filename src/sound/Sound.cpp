#include "sound/Sound.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <span>

#include "sound/RateReader.h"
#include "sound/SoundSource.h"

namespace repvolta {
namespace {

constexpr float kFullScale8 = 128.0F;
constexpr float kFullScale16 = 32768.0F;

void AppendSample(Bytes& data, float sample, std::uint16_t bits) {
  if (bits == 8) {
    const float level = std::clamp(sample * kFullScale8 + kFullScale8, 0.0F, 255.0F);
    data.push_back(static_cast<Byte>(std::lrint(level)));
    return;
  }
  const float level = std::clamp(sample * kFullScale16, -kFullScale16, kFullScale16 - 1);
  const auto value = static_cast<std::uint16_t>(std::lrint(level));
  data.push_back(static_cast<Byte>(value & 0xFF));
  data.push_back(static_cast<Byte>(value >> 8));
}

/// Puts overlapping frames of a sound together again at other distances. Each frame is taken from
/// where the sound best continues the previous frame, so that no period of the voice is cut.
class Stretcher {
 public:
  Stretcher(const Sound& sound, double factor)
      : in_(sound.samples),
        factor_(factor),
        hop_(std::max<std::size_t>(sound.rate / 70, 2)),
        search_(static_cast<std::ptrdiff_t>(hop_ / 2)) {}

  std::vector<float> Run() {
    const auto wanted =
        static_cast<std::size_t>(std::lround(static_cast<double>(in_.size()) * factor_));
    std::vector<float> out(wanted + 2 * hop_);
    std::ptrdiff_t position = 0;
    for (std::size_t start = 0; start < wanted; start += hop_) {
      if (start > 0) position = BestPosition(start, position + static_cast<std::ptrdiff_t>(hop_));
      AddFrame(out, start, position);
    }
    out.resize(wanted);
    return out;
  }

 private:
  float At(std::ptrdiff_t index) const {
    return index < 0 || index >= std::ssize(in_) ? 0.0F : in_[static_cast<std::size_t>(index)];
  }

  float Likeness(std::ptrdiff_t a, std::ptrdiff_t b) const {
    float sum = 0;
    for (std::ptrdiff_t i = 0; i < static_cast<std::ptrdiff_t>(hop_); ++i)
      sum += At(a + i) * At(b + i);
    return sum;
  }

  std::ptrdiff_t BestPosition(std::size_t start, std::ptrdiff_t continuation) const {
    const auto ideal = std::lround(static_cast<double>(start) / factor_);
    std::ptrdiff_t best = ideal;
    float bestLikeness = Likeness(ideal, continuation);
    for (std::ptrdiff_t position = ideal - search_; position <= ideal + search_; ++position) {
      const float likeness = Likeness(position, continuation);
      if (likeness <= bestLikeness) continue;
      bestLikeness = likeness;
      best = position;
    }
    return best;
  }

  void AddFrame(std::vector<float>& out, std::size_t start, std::ptrdiff_t position) const {
    const double step = std::numbers::pi / static_cast<double>(hop_);
    for (std::size_t i = 0; i < 2 * hop_; ++i) {
      // The first frame has no previous one to fade from.
      const bool whole = start == 0 && i < hop_;
      const double weight = whole ? 1.0 : 0.5 - 0.5 * std::cos(step * static_cast<double>(i));
      out[start + i] += static_cast<float>(weight) * At(position + static_cast<std::ptrdiff_t>(i));
    }
  }

  const std::vector<float>& in_;
  double factor_;
  std::size_t hop_;  // half a frame
  std::ptrdiff_t search_;
};

}  // namespace

float Peak(const Sound& sound) {
  return std::accumulate(sound.samples.begin(), sound.samples.end(), 0.0F,
                         [](float peak, float sample) { return std::max(peak, std::abs(sample)); });
}

void Scale(Sound& sound, float gain) {
  for (float& sample : sound.samples) sample *= gain;
}

Sound ConvertRate(const Sound& sound, std::uint32_t rate) {
  const WholeSound source(sound);
  RateReader reader(source, rate);
  Sound result{rate, {}};
  result.samples.reserve(reader.Size());
  for (auto block = reader.Next(); !block.empty(); block = reader.Next()) {
    result.samples.insert(result.samples.end(), block.begin(), block.end());
  }
  return result;
}

Sound Stretch(const Sound& sound, double factor) {
  if (factor == 1.0) return sound;
  return {sound.rate, Stretcher(sound, factor).Run()};
}

Bytes EncodeWav(const Sound& sound, const WavFormat& format) {
  const WholeSound source(sound);
  RateReader reader(source, format.rate);
  const std::size_t sampleSize = format.bits / 8U;
  const std::size_t size = reader.Size() * format.channels * sampleSize;
  const std::size_t padding = size % 2;
  Bytes file = WavHeader(format, static_cast<std::uint32_t>(size + padding));
  file.reserve(file.size() + size + padding);
  for (auto block = reader.Next(); !block.empty(); block = reader.Next()) {
    for (const float sample : block) {
      for (int channel = 0; channel < format.channels; ++channel) {
        AppendSample(file, sample, format.bits);
      }
    }
  }
  if (padding != 0) AppendSample(file, 0, format.bits);
  return file;
}

}  // namespace repvolta
