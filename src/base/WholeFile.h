#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "base/Bytes.h"
#include "base/File.h"

namespace repvolta {

/// The content of the file, at most its first `limit` bytes. Throws FileError.
Bytes ReadWholeFile(const std::string& path, std::size_t limit);

/// Gives the open file, which is to replace the file at `path`, the group and permissions of that
/// one; those of a new file when there is none. Throws FileError.
void TakePermissions(const File& file, const std::string& path);

/// Replaces a file, all or nothing. The bytes are written to a private working file beside `path`;
/// Commit() gives that the group and permissions of `path`, flushes it to the device and renames it
/// to `path`. Until then, and after any failure, `path` is unchanged. Without Commit() the working
/// file is removed; one that a crash or a kill left is removed at the next write of the same file.
class WholeFileWriter {
 public:
  /// Throws FileError when no file can be created beside `path`, or when another process is still
  /// writing the same file after a second.
  explicit WholeFileWriter(std::string path);
  ~WholeFileWriter();
  WholeFileWriter(const WholeFileWriter&) = delete;
  WholeFileWriter& operator=(const WholeFileWriter&) = delete;

  /// Throws FileError that names `path`.
  void Append(std::span<const Byte> bytes);
  void Append(std::string_view text) { Append(AsBytes(text)); }

  /// Appends `from`, from `offset` to its present end. Throws FileError that names `path`.
  void AppendRest(const File& from, std::uint64_t offset);

  /// Puts the new file in place. `lastCheck` runs just before that, when no other WholeFileWriter
  /// can replace `path` any more; if it throws, the old file stays. Throws FileError: one that
  /// names `path` leaves `path` unchanged; one that names its folder means that the new file is in
  /// place but may not survive a power cut.
  void Commit(const std::function<void()>& lastCheck = {});

  /// The stamp of the new file; nothing when it is not in place.
  std::optional<FileStamp> Placed() const;

 private:
  void WriteOut();
  template <class Statement>
  void Writing(Statement statement);
  void FlushWorkingFile();

  std::string path_;
  File file_;
  Bytes pending_;
  std::uint64_t written_ = 0;
  bool committed_ = false;
};

/// Replaces the content of `path` by `bytes`, all or nothing. Throws FileError as WholeFileWriter
/// does.
void WriteWholeFile(const std::string& path, std::span<const Byte> bytes);

}  // namespace repvolta
