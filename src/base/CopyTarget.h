#pragma once

#include <cstdint>
#include <functional>

namespace repvolta {

class File;

/// Watches a long copy: gets the count of bytes that were copied since the last call. What it
/// throws ends the copy.
using CopyWatch = std::function<void(std::uint64_t)>;

/// The file that a copy writes, and how far it is. A copy that is watched goes in small pieces and
/// waits for the device: else the system would take a whole song at once, and then be busy with it
/// for minutes in which nothing can be told and nothing stopped.
class CopyTarget {
 public:
  CopyTarget(File& file, std::uint64_t position, const CopyWatch& watch)
      : file_(file), watch_(watch), position_(position), told_(position), flushed_(position) {}

  File& Output() { return file_; }
  std::uint64_t Position() const { return position_; }

  /// How much may be written before the next Advance(): `most` if nobody watches.
  std::uint64_t Piece(std::uint64_t most) const;

  /// `bytes` have been written at Position(). Throws FileError when the device could not take
  /// earlier ones, and what the watch throws.
  void Advance(std::uint64_t bytes);

 private:
  void KeepPace();

  File& file_;
  const CopyWatch& watch_;
  std::uint64_t position_;
  std::uint64_t told_;     // what the watch knows of, and the device was told to write
  std::uint64_t flushed_;  // what the device has written
};

}  // namespace repvolta
