#pragma once

#include <string>
#include <string_view>

#include "base/FileError.h"

namespace repvolta {

/// A file whose ID3v2 tag could not be read or written: the failure of the file, and which part of
/// the program reports it.
class TagError : public FileError {
 public:
  /// `module` is what follows the name of the running program in the source: ".cMP3ID3v2".
  TagError(const FileError& failure, std::string_view module);

  /// "repvolta-update.cMP3ID3v2"
  const std::string& Source() const { return source_; }

 private:
  std::string source_;
};

}  // namespace repvolta
