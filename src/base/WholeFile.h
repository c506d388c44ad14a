#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "base/Bytes.h"
#include "base/File.h"

namespace repvolta {

/// The whole content, at most `limit` bytes of it. Throws FileError.
Bytes ReadWholeFile(const std::string& path, std::size_t limit);

/// Replaces a file by a new one, all or nothing: the bytes go to a private file beside `path`;
/// Commit() gives it the group and the permissions of `path`, flushes it to the device and puts it
/// in its place. Until then, and when
/// anything fails, `path` is as it was. Without a Commit() nothing stays behind; what a crash or a
/// kill leaves is removed when the same file is next written.
class WholeFileWriter {
 public:
  /// Throws FileError when nothing can be created beside `path`, or when another process goes on
  /// writing the same file.
  explicit WholeFileWriter(std::string path);
  ~WholeFileWriter();
  WholeFileWriter(const WholeFileWriter&) = delete;
  WholeFileWriter& operator=(const WholeFileWriter&) = delete;

  /// Throws FileError that names `path`.
  void Append(std::span<const Byte> bytes);
  void Append(std::string_view text) { Append(AsBytes(text)); }

  /// Appends the bytes that `from` has now, from `offset` on. Throws FileError that names `path`.
  void AppendRest(const File& from, std::uint64_t offset);

  /// `lastCheck` runs right before the new file takes its place, when no other writer of ours can
  /// any more; what it throws keeps the old one. Throws FileError that names `path`, which is then
  /// as it was; or one that names its folder, when the new file is in place but the device may not
  /// know.
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
