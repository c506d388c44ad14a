#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/Bytes.h"

namespace repvolta {

/// What a file held at some time, byte for byte, or that there was no such file. States that differ
/// in a few exercises share the rest, so that hundreds of them take little memory.
class FileState {
 public:
  /// No such file.
  FileState() = default;

  /// Shares with `other` the parts that are equal.
  FileState(const Bytes& content, const FileState& other);

  bool IsFile() const { return content_ != nullptr; }

  /// Of no file: no bytes.
  Bytes Content() const;

  bool operator==(const FileState& other) const;

 private:
  using Part = std::shared_ptr<const Bytes>;

  std::shared_ptr<const std::vector<Part>> content_;
};

/// The state of the file `path` now. Throws FileError when it cannot be read, or is too large for a
/// workout to be held in memory.
FileState ReadFileState(const std::string& path, const FileState& other);

}  // namespace repvolta
