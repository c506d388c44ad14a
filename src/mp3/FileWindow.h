#pragma once

#include "base/File.h"

namespace repvolta {

/// Reads a file in blocks from front to back. The blocks grow as long as each begins where the one
/// before it ended: a short search costs one small read, a long search few reads.
class FileWindow {
 public:
  explicit FileWindow(const File& file) : file_(file) {}

  /// The bytes of the file from `offset` on: at least `count` of them, fewer only at the end of the
  /// file. They are valid until the next call. Throws FileError.
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
  std::size_t size_ = 0;  // of the last block, before it met the end of the file
};

}  // namespace repvolta
