#include "base/CopyTarget.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>

#include "base/File.h"
#include "base/FileError.h"

namespace repvolta {
namespace {

/// Even a slow player writes several of these in a second.
constexpr std::uint64_t kWatchedPiece = std::uint64_t{1} << 20;

/// True when the file system cannot write a part of a file to the device on its own.
bool IsUnsupported(int error) {
  return error == EINVAL || error == ENOSYS || error == ESPIPE || error == EOPNOTSUPP;
}

}  // namespace

std::uint64_t CopyTarget::Piece(std::uint64_t most) const {
  return watch_ ? std::min(most, kWatchedPiece) : most;
}

void CopyTarget::Advance(std::uint64_t bytes) {
  position_ += bytes;
  if (!watch_ || position_ - told_ < kWatchedPiece) return;
  KeepPace();
  const std::uint64_t news = position_ - told_;
  told_ = position_;
  watch_(news);
}

/// The device always has one piece to write while the next one is read.
void CopyTarget::KeepPace() {
  const auto sync = [&](std::uint64_t from, std::uint64_t to, unsigned flags) {
    return Uninterrupted([&] {
      return sync_file_range(file_.OpenAs().Number(), static_cast<off64_t>(from),
                             static_cast<off64_t>(to - from), flags);
    });
  };
  constexpr unsigned kAndWait =
      SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER;
  bool hasFailed = sync(told_, position_, SYNC_FILE_RANGE_WRITE) != 0;
  // A length of 0 would mean the whole rest of the file. An error is told only once, so it must
  // not be passed over for the last flush to find.
  if (!hasFailed && told_ > flushed_) hasFailed = sync(flushed_, told_, kAndWait) != 0;
  flushed_ = told_;
  if (hasFailed && !IsUnsupported(errno)) {
    throw FileError(file_.Path(), "could not be written", errno);
  }
}

}  // namespace repvolta
