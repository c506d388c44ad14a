#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <sys/stat.h>
#include <utility>

#include "base/Bytes.h"
#include "base/CopyTarget.h"
#include "base/Descriptor.h"

namespace repvolta {

/// Identifies one state of a file: writing or replacing the file changes the stamp.
struct FileStamp {
  std::uint64_t device = 0;
  std::uint64_t number = 0;  // of the file on its device
  std::uint64_t size = 0;
  std::int64_t seconds = 0;  // of the last change of its content
  std::int64_t nanoseconds = 0;

  bool operator==(const FileStamp&) const = default;
};

/// An open regular file, closed on destruction. Folders, pipes and devices are refused, so no read
/// can wait for ever. Offsets and sizes are bytes.
class File {
 public:
  enum class Access { kRead, kReadWrite };

  /// Throws FileError when `path` does not exist, is not a regular file, or denies this access.
  static File Open(const std::string& path, Access access);

  /// A new, empty file for reading and writing. Throws FileError when `path` already exists, even
  /// as a dangling link. `mode` holds the permission bits, less the umask.
  static File CreateNew(const std::string& path, unsigned mode = 0666);

  /// Opens the file for reading and writing and creates it if it does not exist. Symbolic links,
  /// and files with more than one hard link, are refused. Throws FileError.
  static File OpenOrCreate(const std::string& path);

  /// A file that was just created and is open as `descriptor`.
  static File TakeOver(Descriptor descriptor, std::string path);

  /// What was opened for `access`, or could not be: then errno holds the error. Throws FileError
  /// when it is not an open regular file.
  static File TakeOverUnknown(Descriptor descriptor, const std::string& path, Access access);

  const std::string& Path() const { return path_; }
  const Descriptor& OpenAs() const { return descriptor_; }

  /// Throws FileError.
  struct stat Status() const;
  std::uint64_t Size() const;
  FileStamp Stamp() const;

  /// What Open found, without asking again; 0 for a file that was just created.
  std::uint64_t SizeAtOpening() const { return sizeAtOpening_; }

  /// Reads at `offset` until `buffer` is full or the file ends; returns the count of bytes read.
  /// Throws FileError.
  std::size_t ReadAt(std::uint64_t offset, std::span<Byte> buffer) const;

  /// Writes all of `bytes` at `offset`. Throws FileError; some bytes may then have been written.
  void WriteAt(std::uint64_t offset, std::span<const Byte> bytes);

  /// Waits until the content is on the device, where the file system can wait. Throws FileError.
  void FlushToDevice();

  /// Call this after the last write, before reporting success: some file systems, network ones
  /// above all, report only on close that they could not store the data. The file stays open and
  /// locked. Throws FileError.
  void ConfirmWritten() const;

  /// Closes the file after its last write, which is the last chance to hear that the data could not
  /// be stored. Throws FileError.
  void CloseWritten();

  /// Takes back what was written behind `size` bytes, after an error that is being reported.
  void CutBackTo(std::uint64_t size) noexcept;

  /// Makes the system start to write the content to the device, and does not wait for it.
  void StartFlush() const noexcept;

 private:
  File(Descriptor descriptor, std::string path)
      : descriptor_(std::move(descriptor)), path_(std::move(path)) {}

  Descriptor descriptor_;
  std::string path_;
  std::uint64_t sizeAtOpening_ = 0;
};

/// True when `path` is a regular file, or a link to one. Throws FileError when the disk cannot
/// tell: a file must not be taken for missing, and then replaced, because a disk fails.
bool FileExists(const std::string& path);

/// Like FileExists, but false when the disk cannot tell: for files that are only ever read.
bool FileIsReachable(const std::string& path);

/// The size of a file that FileIsReachable; else nothing.
std::optional<std::uint64_t> SizeIfReachable(const std::string& path);

/// The stamp of the file `path`, links followed; nothing when there is no such file. Throws
/// FileError when the disk cannot tell.
std::optional<FileStamp> StampOf(const std::string& path);

/// Copies `from`, from `offset` to its present end, into `to` at `position`, and returns the
/// position after the copied bytes. Both may be the same file. Memory use does not depend on the
/// size. Throws FileError, and what `watch` throws.
std::uint64_t CopyContent(const File& from, std::uint64_t offset, File& to, std::uint64_t position,
                          const CopyWatch& watch = {});

/// How a copy differs from its source: it starts with `head`, and the source's bytes follow from
/// `offset` on. `watch` may be null.
struct CopyStart {
  std::span<const Byte> head = {};
  std::uint64_t offset = 0;
  CopyWatch watch = {};
};

/// Writes a copy of `from` into the new, empty file `to`, from its start to its end in one pass.
/// Throws FileError.
void WriteCopy(const File& from, const CopyStart& start, File& to);

/// Copies the content of the file `source` to `target`. An existing `target` is replaced by a new
/// file; if it is a link, the link is replaced and its file untouched. Throws FileError; then no
/// `target` is left.
void CopyFileOver(const std::string& source, const std::string& target,
                  const CopyStart& start = {});

/// Like CopyFileOver, but throws FileError when `target` already exists.
void CopyFileToNew(const std::string& source, const std::string& target,
                   const CopyStart& start = {});

/// Removes the file or link `path`, even a read-only one; it need not exist. Throws FileError.
void RemoveFile(const std::string& path);

/// Waits until the entries of the folder are on the device. Throws FileError.
void FlushFolder(const std::string& folder);

/// Waits until an open file or folder is on its device. Returns 0, also where the file system has
/// no way to do that, or the errno value.
int FlushDescriptor(const Descriptor& descriptor);

}  // namespace repvolta
