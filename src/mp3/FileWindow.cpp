#include "mp3/FileWindow.h"

#include <algorithm>

namespace repvolta {
namespace {

constexpr std::size_t kLargestBlock = std::size_t{128} * 1024;

}  // namespace

void FileWindow::ReadBlock(std::uint64_t offset, std::size_t count) {
  block_.resize(std::max(nextSize_, count));
  block_.resize(file_.ReadAt(offset, block_));
  start_ = offset;
  nextSize_ = std::min(nextSize_ * 4, kLargestBlock);
}

}  // namespace repvolta
