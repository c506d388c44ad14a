#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "base/Bytes.h"
#include "base/Descriptor.h"

namespace repvolta {

/// Tells one state of a file from another: a file that was replaced or written has another stamp.
struct FileStamp {
  std::uint64_t device = 0;
  std::uint64_t number = 0;  // of the file on its device
  std::uint64_t size = 0;
  std::int64_t seconds = 0;  // of the last change of its content
  std::int64_t nanoseconds = 0;

  bool operator==(const FileStamp&) const = default;
};

/// An open regular file; closed when it goes. Folders, pipes and devices are refused, so no read
/// can wait for ever. Offsets and sizes are bytes.
class File {
 public:
  enum class Access { kRead, kReadWrite };

  /// Throws FileError when `path` does not exist, may not be used so, or is no regular file.
  static File Open(const std::string& path, Access access);

  /// A new, empty file for reading and writing. Throws FileError when anything stands at `path`, a
  /// dangling link too. `mode` are permission bits, less the umask.
  static File CreateNew(const std::string& path, unsigned mode = 0666);

  /// The file for reading and writing, made when it does not exist. A link is refused, and so is a
  /// file that has another name elsewhere. Throws FileError.
  static File OpenOrCreate(const std::string& path);

  const std::string& Path() const { return path_; }
  const Descriptor& OpenAs() const { return descriptor_; }

  /// Throws FileError.
  std::uint64_t Size() const;
  FileStamp Stamp() const;

  /// Reads at `offset` until `buffer` is full or the file ends; returns the count of bytes read.
  /// Throws FileError.
  std::size_t ReadAt(std::uint64_t offset, std::span<Byte> buffer) const;

  /// Writes all of `bytes` at `offset`. Throws FileError; some bytes may then have been written.
  void WriteAt(std::uint64_t offset, std::span<const Byte> bytes);

  /// Returns when the content is on the device. Throws FileError.
  void FlushToDevice();

  /// To be called behind the last write, before a success is said: some file systems, those of
  /// networks above all, tell only when a file is closed that they could not keep what was written.
  /// The file stays open, and locked. Throws FileError.
  void ConfirmWritten() const;

  /// Lets the system begin to bring the content to the device, without waiting for it.
  void StartFlush() const noexcept;

 private:
  File(Descriptor descriptor, std::string path)
      : descriptor_(std::move(descriptor)), path_(std::move(path)) {}

  Descriptor descriptor_;
  std::string path_;
};

/// True when `path` is a regular file, or a link to one. Throws FileError when that cannot be
/// known: a file must not be taken for missing, and then replaced, because a disk fails.
bool FileExists(const std::string& path);

/// As FileExists, but false when it cannot be known: for files that are only ever read.
bool FileIsReachable(const std::string& path);

/// The stamp of the file `path`, or of the one that it is a link to; nothing when there is none.
/// Throws FileError when that cannot be known.
std::optional<FileStamp> StampOf(const std::string& path);

/// True when `path` is a link, or a file that has another name elsewhere: writing to it would
/// change that too. Throws FileError when that cannot be known.
bool IsLinked(const std::string& path);

/// Copies the bytes that `from` has now, from `offset` on, to the end of what has been written to
/// `to`, whose next write position is `position`; the two may be one file. Memory use does not
/// depend on the size. Returns the new position. Throws FileError.
std::uint64_t CopyContent(const File& from, std::uint64_t offset, File& to, std::uint64_t position);

/// How a copy differs from its source: it starts with `head`, and the source's bytes follow from
/// `offset` on.
struct CopyStart {
  std::span<const Byte> head = {};
  std::uint64_t offset = 0;
};

/// Copies the file `source` to `target`, content only. Whatever stands at `target`, a link too, is
/// replaced by a new file and never written through. Throws FileError; then no `target` is left.
void CopyFileOver(const std::string& source, const std::string& target,
                  const CopyStart& start = {});

/// Like CopyFileOver, but throws FileError when anything stands at `target`.
void CopyFileToNew(const std::string& source, const std::string& target,
                   const CopyStart& start = {});

/// Removes the file or link `path`, read-only too; what does not exist is no error. Throws
/// FileError.
void RemoveFile(const std::string& path);

/// Returns when the entries of the folder are on the device. Throws FileError.
void FlushFolder(const std::string& folder);

}  // namespace repvolta
