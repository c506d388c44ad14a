#pragma once

#include <string>
#include <string_view>

#include "base/Bytes.h"

namespace repvolta {

/// An empty folder that is the current directory until this object is destroyed, which deletes it.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  /// The full path, ending with the separator.
  const std::string& Path() const { return path_; }

 private:
  std::string path_;
  std::string before_;
};

/// Writes a file and creates its folders. For tests only: nothing is flushed.
void PutFile(const std::string& path, std::span<const Byte> content);
void PutFile(const std::string& path, std::string_view content);

/// The whole content; fails the test when the file cannot be read.
Bytes GetFile(const std::string& path);
std::string GetTextFile(const std::string& path);

}  // namespace repvolta
