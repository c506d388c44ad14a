#pragma once

#include <string>
#include <string_view>

#include "base/Bytes.h"
#include "base/File.h"

namespace repvolta {

/// The whole content, at most `limit` bytes of it. Throws FileError.
Bytes ReadWholeFile(const std::string& path, std::size_t limit);

/// Replaces a file by a new one, all or nothing: the bytes go to a private file beside `path`;
/// Commit() flushes it to the device and puts it in the place of `path`. Until then, and when
/// anything fails, `path` is as it was. Without a Commit() nothing stays behind.
class WholeFileWriter {
 public:
  /// Throws FileError when nothing can be created beside `path`.
  explicit WholeFileWriter(std::string path);
  ~WholeFileWriter();
  WholeFileWriter(const WholeFileWriter&) = delete;
  WholeFileWriter& operator=(const WholeFileWriter&) = delete;

  /// Throws FileError that names `path`.
  void Append(std::span<const Byte> bytes);
  void Append(std::string_view text) { Append(AsBytes(text)); }

  /// Throws FileError that names `path`, which is then as it was.
  void Commit();

 private:
  void WriteOut();

  std::string path_;
  File file_;
  Bytes pending_;
  std::uint64_t written_ = 0;
  bool committed_ = false;
};

/// Replaces the content of `path` by `bytes`, all or nothing. Throws FileError.
void WriteWholeFile(const std::string& path, std::span<const Byte> bytes);

}  // namespace repvolta
