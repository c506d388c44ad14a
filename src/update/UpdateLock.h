#pragma once

#include <stdexcept>
#include <string>

#include "base/File.h"

namespace repvolta {

/// Another process, or another window of this one, is updating in the same program directory.
class UpdateRunning : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// While it lives no other update can begin in the program directory. It ends with its process,
/// however that ends, and children do not inherit it.
class UpdateLock {
 public:
  /// Throws UpdateRunning when the lock is taken and stays so for a quarter of a second; FileError
  /// when the lock's file, which stays in the directory and is always empty, cannot be opened.
  explicit UpdateLock(const std::string& programDirectory);

 private:
  File file_;
};

}  // namespace repvolta
