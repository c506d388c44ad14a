#pragma once

#include <string>

#include "base/FileError.h"

namespace repvolta {

/// A file is no backup that can be restored. what() names it and says why.
class BackupError : public FileError {
 public:
  BackupError(const std::string& path, const std::string& reason)
      : FileError(path, "is no backup that can be restored", reason) {}
};

}  // namespace repvolta
