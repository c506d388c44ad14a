#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "sound/SoundSource.h"

struct soxr;

namespace repvolta {

/// Reads a sound from start to end at a rate of one's choice. Holds only a block of it.
class RateReader {
 public:
  /// The source must outlive the reader.
  RateReader(const SoundSource& source, std::uint32_t rate);

  /// The samples that all calls of Next give together.
  std::size_t Size() const { return size_; }

  /// The samples that follow, valid until the next call; none at the end. Throws
  /// std::runtime_error.
  std::span<const float> Next();

 private:
  struct Closer {
    void operator()(soxr* state) const;
  };

  std::span<const float> Unchanged();
  std::span<const float> Converted();
  void ReadBlock();
  std::span<const float> Give(std::size_t count);

  const SoundSource& source_;
  std::size_t size_;
  std::size_t left_;
  std::size_t position_ = 0;  // in the source
  std::vector<float> in_;
  std::span<const float> pending_;  // what is not yet converted of in_
  std::vector<float> out_;
  std::unique_ptr<soxr, Closer> state_;  // none where the rate stays
};

}  // namespace repvolta
