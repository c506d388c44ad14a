#include "base/File.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "base/FileError.h"
#include "base/FileStatus.h"

namespace repvolta {
namespace {

constexpr std::uint64_t kCopyBlock = std::uint64_t{128} * 1024;
constexpr std::uint64_t kSystemCopyBlock = std::uint64_t{1} << 30;

constexpr const char* kWriteFailure = "could not be opened for writing";
constexpr const char* kNoFile = "It is not a file";

const char* OpenFailure(File::Access access) {
  return access == File::Access::kRead ? "could not be read" : kWriteFailure;
}

constexpr const char* kOtherName = "It has another name elsewhere";

/// The size and the names of an open regular file; throws FileError for anything else. Its times
/// are not asked for: after that, some file systems note the time of the next write more exactly,
/// which takes as long as a small write.
struct statx StatusOfOpened(const Descriptor& descriptor, const std::string& path,
                            const char* failure) {
  constexpr unsigned kWanted = STATX_TYPE | STATX_SIZE | STATX_NLINK;
  struct statx status{};
  if (statx(descriptor.Number(), "", AT_EMPTY_PATH, kWanted, &status) != 0) {
    throw FileError(path, failure, errno);
  }
  if (!S_ISREG(status.stx_mode)) throw FileError(path, failure, kNoFile);
  return status;
}

FileStamp MakeStamp(const struct stat& status) {
  return {.device = status.st_dev,
          .number = status.st_ino,
          .size = static_cast<std::uint64_t>(status.st_size),
          .seconds = status.st_mtim.tv_sec,
          .nanoseconds = status.st_mtim.tv_nsec};
}

}  // namespace

File File::Open(const std::string& path, Access access) {
  // Without O_NONBLOCK, opening a pipe would wait for its other end.
  const int mode = access == Access::kRead ? O_RDONLY : O_RDWR;
  return TakeOverUnknown(OpenDescriptor(path, mode | O_NONBLOCK), path, access);
}

File File::TakeOver(Descriptor descriptor, std::string path) {
  return {std::move(descriptor), std::move(path)};
}

File File::TakeOverUnknown(Descriptor descriptor, const std::string& path, Access access) {
  if (!descriptor.IsOpen()) throw FileError(path, OpenFailure(access), errno);
  const std::uint64_t size = StatusOfOpened(descriptor, path, OpenFailure(access)).stx_size;
  File file(std::move(descriptor), path);
  file.sizeAtOpening_ = size;
  return file;
}

File File::CreateNew(const std::string& path, unsigned mode) {
  Descriptor descriptor = OpenDescriptor(path, O_RDWR | O_CREAT | O_EXCL, mode);
  if (!descriptor.IsOpen()) throw FileError(path, "could not be created", errno);
  return {std::move(descriptor), path};
}

File File::OpenOrCreate(const std::string& path) {
  const int flags = O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK;
  Descriptor descriptor = OpenDescriptor(path, flags, 0666);
  if (!descriptor.IsOpen()) throw FileError(path, kWriteFailure, errno);
  File file(std::move(descriptor), path);
  if (StatusOfOpened(file.descriptor_, path, kWriteFailure).stx_nlink > 1) {
    throw FileError(path, kWriteFailure, kOtherName);
  }
  return file;
}

struct stat File::Status() const {
  struct stat status{};
  if (fstat(descriptor_.Number(), &status) != 0) throw FileError(path_, "could not be read", errno);
  return status;
}

std::uint64_t File::Size() const { return static_cast<std::uint64_t>(Status().st_size); }

FileStamp File::Stamp() const { return MakeStamp(Status()); }

std::size_t File::ReadAt(std::uint64_t offset, std::span<Byte> buffer) const {
  std::size_t done = 0;
  while (done < buffer.size()) {
    const ssize_t count = pread(descriptor_.Number(), buffer.data() + done, buffer.size() - done,
                                static_cast<off_t>(offset + done));
    if (count == 0) break;
    if (count > 0) {
      done += static_cast<std::size_t>(count);
    } else if (errno != EINTR) {
      throw FileError(path_, "could not be read", errno);
    }
  }
  return done;
}

void File::WriteAt(std::uint64_t offset, std::span<const Byte> bytes) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t count = pwrite(descriptor_.Number(), bytes.data() + done, bytes.size() - done,
                                 static_cast<off_t>(offset + done));
    if (count >= 0) {
      done += static_cast<std::size_t>(count);
    } else if (errno != EINTR) {
      throw FileError(path_, "could not be written", errno);
    }
  }
}

void File::FlushToDevice() {
  const int error = FlushDescriptor(descriptor_);
  if (error != 0) throw FileError(path_, "could not be written", error);
}

void File::CloseWritten() {
  const int number = descriptor_.Number();
  descriptor_.Release();
  // After a signal the descriptor is closed all the same.
  if (close(number) != 0 && errno != EINTR) {
    throw FileError(path_, "could not be written", errno);
  }
}

void File::CutBackTo(std::uint64_t size) noexcept {
  static_cast<void>(
      Uninterrupted([&] { return ftruncate(descriptor_.Number(), static_cast<off_t>(size)); }));
}

void File::ConfirmWritten() const {
  // Closing a duplicate descriptor makes the file system report its errors as well. The first one
  // stays open, because closing it would release a lock and could not be repeated after a signal.
  const int result = Uninterrupted([&] {
    const int second = fcntl(descriptor_.Number(), F_DUPFD_CLOEXEC, 0);
    return second < 0 ? second : close(second);
  });
  if (result != 0) throw FileError(path_, "could not be written", errno);
}

void File::StartFlush() const noexcept {
  // A failure can be ignored here: the later flush fails again and reports it.
  static_cast<void>(sync_file_range(descriptor_.Number(), 0, 0, SYNC_FILE_RANGE_WRITE));
}

bool FileExists(const std::string& path) {
  const auto status = StatusOf(path, Links::kFollowed);
  return status && S_ISREG(status->st_mode);
}

bool FileIsReachable(const std::string& path) { return SizeIfReachable(path).has_value(); }

std::optional<std::uint64_t> SizeIfReachable(const std::string& path) {
  struct stat status{};
  if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  return static_cast<std::uint64_t>(status.st_size);
}

std::optional<FileStamp> StampOf(const std::string& path) {
  const auto status = StatusOf(path, Links::kFollowed);
  if (!status) return std::nullopt;
  return MakeStamp(*status);
}

namespace {

/// Lets the kernel copy without going through this program's memory. It may copy only a part, or
/// nothing where the file system does not support it. Returns the offset in `from` that it reached.
std::uint64_t CopyInSystem(const File& from, std::uint64_t offset, std::uint64_t end,
                           CopyTarget& to) {
  auto read = static_cast<off64_t>(offset);
  auto written = static_cast<off64_t>(to.Position());
  while (static_cast<std::uint64_t>(read) < end) {
    const auto wanted =
        std::min(end - static_cast<std::uint64_t>(read), to.Piece(kSystemCopyBlock));
    const ssize_t count = copy_file_range(from.OpenAs().Number(), &read,
                                          to.Output().OpenAs().Number(), &written, wanted, 0);
    if (count == 0 || (count < 0 && errno != EINTR)) break;
    if (count > 0) to.Advance(static_cast<std::uint64_t>(count));
  }
  return static_cast<std::uint64_t>(read);
}

}  // namespace

std::uint64_t CopyContent(const File& from, std::uint64_t offset, File& to, std::uint64_t position,
                          const CopyWatch& watch) {
  // The end is read once: a file that is appended to itself would otherwise grow for ever.
  const std::uint64_t end = from.Size();
  CopyTarget target(to, position, watch);
  // Only what stands at the same place in both files can be shared by them, which takes no time.
  // Else the system copies a page at a time, which on some machines takes longer than blocks.
  const bool mayBeShared = offset == position && offset < end && end - offset > kCopyBlock;
  if (mayBeShared) offset = CopyInSystem(from, offset, end, target);
  if (offset >= end) return target.Position();
  std::vector<Byte> block(static_cast<std::size_t>(std::min(end - offset, kCopyBlock)));
  while (offset < end) {
    const auto wanted = static_cast<std::size_t>(std::min(end - offset, kCopyBlock));
    const std::size_t count = from.ReadAt(offset, std::span(block).first(wanted));
    if (count == 0) break;
    to.WriteAt(target.Position(), std::span(block).first(count));
    offset += count;
    target.Advance(count);
  }
  return target.Position();
}

void WriteCopy(const File& from, const CopyStart& start, File& to) {
  if (!start.head.empty()) to.WriteAt(0, start.head);
  CopyContent(from, start.offset, to, start.head.size(), start.watch);
}

void CopyFileToNew(const std::string& source, const std::string& target, const CopyStart& start) {
  const File from = File::Open(source, File::Access::kRead);
  File to = File::CreateNew(target);
  try {
    WriteCopy(from, start, to);
    to.CloseWritten();
  } catch (...) {
    unlink(target.c_str());
    throw;
  }
}

void CopyFileOver(const std::string& source, const std::string& target, const CopyStart& start) {
  {
    const File readable = File::Open(source, File::Access::kRead);
  }
  RemoveFile(target);
  CopyFileToNew(source, target, start);
}

void RemoveFile(const std::string& path) {
  if (unlink(path.c_str()) != 0 && errno != ENOENT) {
    throw FileError(path, "could not be deleted", errno);
  }
}

void FlushFolder(const std::string& folder) {
  const Descriptor descriptor = OpenDescriptor(folder, O_RDONLY | O_DIRECTORY);
  if (!descriptor.IsOpen()) throw FileError(folder, "could not be read", errno);
  const int error = FlushDescriptor(descriptor);
  if (error != 0) throw FileError(folder, "could not be written", error);
}

int FlushDescriptor(const Descriptor& descriptor) {
  if (Uninterrupted([&] { return fsync(descriptor.Number()); }) == 0) return 0;
  // With these a file system says that it cannot flush, not that data was lost.
  // EROFS is none of them: so answers a file system that has stopped because of errors.
  const bool isUnable = errno == EINVAL || errno == ENOSYS || errno == ENOTSUP;
  return isUnable ? 0 : errno;
}

}  // namespace repvolta
