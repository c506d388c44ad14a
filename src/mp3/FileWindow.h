#pragma once

#include "base/File.h"

namespace repvolta {

/// A file that is read a block at a time, for looking at it from front to back. Blocks grow while
/// the looking goes on, so a short look costs a small read and a long one few of them.
class FileWindow {
 public:
  explicit FileWindow(const File& file) : file_(file) {}

  /// The bytes of the file from `offset` on: at least `count` of them, fewer only where the file
  /// ends. They are there until the next call. Throws FileError.
  std::span<const Byte> From(std::uint64_t offset, std::size_t count) {
    const std::uint64_t end = start_ + block_.size();
    if (offset < start_ || offset > end || end - offset < count) ReadBlock(offset, count);
    return std::span<const Byte>(block_).subspan(static_cast<std::size_t>(offset - start_));
  }

 private:
  void ReadBlock(std::uint64_t offset, std::size_t count);

  const File& file_;
  Bytes block_;
  std::uint64_t start_ = 0;
  std::size_t nextSize_ = std::size_t{4} * 1024;
};

}  // namespace repvolta
