#pragma once

#include <cstddef>
#include <cstdint>

namespace repvolta {

/// The cost of one deed so far.
struct Cost {
  std::size_t heldNow = 0;  // bytes of memory; counted only under the address sanitizer
  std::size_t heldMost = 0;
  std::uint64_t bytesRead = 0;  // from files
  std::uint64_t reads = 0;      // calls
};

/// Its destructor requires that the deed since the constructor cost no more than a constant and a
/// small multiple of the size of its input.
class LinearCost {
 public:
  /// `constant`: bytes of memory that the deed may hold for an empty input.
  explicit LinearCost(std::size_t inputSize, std::size_t constant = kFewBlocks);
  ~LinearCost();
  LinearCost(const LinearCost&) = delete;
  LinearCost& operator=(const LinearCost&) = delete;

  /// Room for the one or two blocks in which a file is read or copied.
  static constexpr std::size_t kFewBlocks = 768 * 1024;

 private:
  std::size_t inputSize_;
  std::size_t constant_;
};

}  // namespace repvolta
