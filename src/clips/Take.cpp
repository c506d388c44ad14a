#include "clips/Take.h"

#include <algorithm>
#include <cmath>

namespace repvolta {
namespace {

/// What the clip has around its word at most. Any more might be taken for the word where there is a
/// hum.
constexpr double kAroundWord = 0.06;  // seconds

}  // namespace

Take::Take(std::uint32_t rate) : sound_{rate, {}}, watch_(rate) {
  sound_.samples.reserve(std::size_t{rate} * (WordWatch::kLongest + 1));
}

void Take::Add(std::span<const float> samples) {
  if (HasEnded()) return;
  watch_.Add(samples);
  sound_.samples.insert(sound_.samples.end(), samples.begin(), samples.end());
}

TakeJudgement Take::Judgement() const { return Judge(sound_, watch_.Word(), watch_.End()); }

Sound Take::Recording() const {
  const SoundSpan word = watch_.Word().value_or(SoundSpan{});
  const auto around = static_cast<std::size_t>(std::lround(kAroundWord * sound_.rate));
  const std::size_t begin = word.begin - std::min(word.begin, around);
  const std::size_t end = std::min(word.end + around, sound_.samples.size());
  const auto at = [this](std::size_t i) {
    return sound_.samples.begin() + static_cast<std::ptrdiff_t>(i);
  };
  return {sound_.rate, {at(begin), at(end)}};
}

}  // namespace repvolta
