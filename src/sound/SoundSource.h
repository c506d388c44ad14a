#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

#include "sound/Sound.h"

namespace repvolta {

/// One channel of sound that need not be in memory as a whole.
class SoundSource {
 public:
  virtual ~SoundSource() = default;

  virtual std::uint32_t Rate() const = 0;  // samples a second
  virtual std::size_t Size() const = 0;    // samples

  /// Fills `samples` with those from `first` on, which all exist.
  virtual void Read(std::size_t first, std::span<float> samples) const = 0;
};

/// A sound in memory, which must outlive this.
class WholeSound : public SoundSource {
 public:
  explicit WholeSound(const Sound& sound) : sound_(sound) {}

  std::uint32_t Rate() const override { return sound_.rate; }
  std::size_t Size() const override { return sound_.samples.size(); }
  void Read(std::size_t first, std::span<float> samples) const override {
    std::ranges::copy(std::span(sound_.samples).subspan(first, samples.size()), samples.begin());
  }

 private:
  const Sound& sound_;
};

}  // namespace repvolta
