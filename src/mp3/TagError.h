#pragma once

#include <string>
#include <string_view>

#include "base/FileError.h"

namespace repvolta {

/// A file's ID3v2 tag could not be read or written: holds the file's failure and the part of the
/// program that reports it.
class TagError : public FileError {
 public:
  /// `module` follows the program's name in Source(): ".cMP3ID3v2".
  TagError(const FileError& failure, std::string_view module);

  /// "repvolta-update.cMP3ID3v2"
  const std::string& Source() const { return source_; }

 private:
  std::string source_;
};

}  // namespace repvolta
