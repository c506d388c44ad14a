#pragma once

#include <span>
#include <stdexcept>

#include "sound/SoundSource.h"

namespace repvolta {

/// The reason why a file's sound cannot be read, in words for the user: "It is no WAV file".
class WavError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The sound of a WAV file in memory, its channels mixed into one. Reads integer samples of 8, 16,
/// 24 and 32 bits and floating-point samples of 32 and 64 bits, up to 8 channels, 1 kHz to 384 kHz.
/// A truncated file gives the sound up to its end.
class WavSource : public SoundSource {
 public:
  /// The bytes must outlive this. Throws WavError.
  explicit WavSource(std::span<const Byte> file);

  std::uint32_t Rate() const override { return format_.rate; }
  std::size_t Size() const override { return data_.size() / FrameSize(); }
  void Read(std::size_t first, std::span<float> samples) const override;

 private:
  std::size_t SampleSize() const { return format_.bits / 8U; }
  std::size_t FrameSize() const { return SampleSize() * format_.channels; }
  float Mixed(std::span<const Byte> frame) const;

  std::uint16_t tag_ = 0;
  WavFormat format_;
  std::span<const Byte> data_;
};

/// All samples of a WAV file that WavSource reads. Throws WavError.
Sound ReadWav(std::span<const Byte> file);

}  // namespace repvolta
