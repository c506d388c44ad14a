#pragma once

#include <cstddef>
#include <cstdint>

namespace repvolta {

/// What one deed has cost so far.
struct Cost {
  std::size_t heldNow = 0;  // bytes of memory; counted only under the address sanitizer
  std::size_t heldMost = 0;
  std::uint64_t bytesRead = 0;  // from files
  std::uint64_t reads = 0;      // calls
};

/// Requires at its end that the deed done since its begin cost no more than a small multiple of the
/// size of its input, besides a constant.
class LinearCost {
 public:
  /// `constant`: bytes of memory that the deed may hold for an empty input.
  explicit LinearCost(std::size_t inputSize, std::size_t constant = kFewBlocks);
  ~LinearCost();
  LinearCost(const LinearCost&) = delete;
  LinearCost& operator=(const LinearCost&) = delete;

  /// A file is read in blocks of this size at the most, and copied by one or two.
  static constexpr std::size_t kFewBlocks = 768 * 1024;

 private:
  std::size_t inputSize_;
  std::size_t constant_;
};

}  // namespace repvolta
