#include "mp3/FileWindow.h"

#include <algorithm>

namespace repvolta {
namespace {

constexpr std::size_t kLargestBlock = 256 * 1024;

}  // namespace

std::span<const Byte> FileWindow::From(std::uint64_t offset, std::size_t count) {
  const std::uint64_t end = start_ + block_.size();
  if (offset < start_ || offset > end || end - offset < count) {
    block_.resize(std::max(nextSize_, count));
    block_.resize(file_.ReadAt(offset, block_));
    start_ = offset;
    nextSize_ = std::min(nextSize_ * 4, kLargestBlock);
  }
  return std::span<const Byte>(block_).subspan(static_cast<std::size_t>(offset - start_));
}

}  // namespace repvolta
