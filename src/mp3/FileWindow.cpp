#include "mp3/FileWindow.h"

#include <algorithm>

namespace repvolta {
namespace {

constexpr std::size_t kSmallestBlock = std::size_t{4} * 1024;
constexpr std::size_t kLargestBlock = std::size_t{128} * 1024;

}  // namespace

void FileWindow::ReadBlock(std::uint64_t offset, std::size_t count) {
  // Behind a jump, as over a tag, most searches end at once.
  const bool goesOn = !block_.empty() && offset >= start_ && offset <= start_ + block_.size();
  size_ = goesOn ? std::min(size_ * 4, kLargestBlock) : kSmallestBlock;
  block_.resize(std::max(size_, count));
  block_.resize(file_.ReadAt(offset, block_));
  start_ = offset;
}

}  // namespace repvolta
