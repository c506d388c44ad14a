#pragma once

#include <optional>
#include <string>
#include <sys/stat.h>

#include "base/Descriptor.h"
#include "base/File.h"

namespace repvolta {

/// An opened folder. What is done through it is done in this very folder, even when another one, or
/// a link, has taken its path meanwhile. A name is that of one entry; links are never followed.
class FolderHandle {
 public:
  /// No folder.
  FolderHandle() = default;

  /// Opens a folder, or what a link to one points to, in which entries can be opened and deleted.
  /// On failure the result is not open and errno holds the error.
  static FolderHandle Open(const std::string& path);

  /// Opens a folder in this one. On failure the result is not open and errno holds the error.
  FolderHandle OpenFolder(const std::string& name) const;

  bool IsOpen() const { return descriptor_.IsOpen(); }
  const Descriptor& OpenAs() const { return descriptor_; }

  /// The path with which it was opened; ends with the separator.
  const std::string& Path() const { return path_; }

  /// "" is the folder itself; nothing when there is no such entry. Throws FileError when the disk
  /// cannot tell.
  std::optional<struct stat> StatusOf(const std::string& name) const;

  /// Creates a folder. Returns 0 or the errno value.
  int MakeFolder(const std::string& name) const;

  /// A new, empty file that is only written. Throws FileError, also when the name is taken.
  File CreateFile(const std::string& name) const;

  /// Throws FileError when there is no such file, or something else than a file.
  File OpenFile(const std::string& name, File::Access access) const;

  /// Removes a file or link; it need not exist. Throws FileError.
  void RemoveFile(const std::string& name) const;

  /// Waits until the entries of the folder are on the device. Throws FileError.
  void FlushToDevice() const;

  /// True when the folder is still, or again, at its path.
  bool IsAtItsPath() const;

 private:
  FolderHandle(Descriptor descriptor, std::string path)
      : descriptor_(std::move(descriptor)), path_(std::move(path)) {}

  Descriptor OpenEntry(const std::string& name, int flags, unsigned mode = 0) const;

  Descriptor descriptor_;
  std::string path_;
};

}  // namespace repvolta
