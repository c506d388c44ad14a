#pragma once

#include <stdexcept>
#include <string>

#include "base/File.h"
#include "base/Lock.h"

namespace repvolta {

/// Another process, or another window of this one, is updating in the same program directory.
class UpdateRunning : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// While this lock is held, no other update can begin in the program directory. The system releases
/// it when the process ends in any way; child programs do not inherit it.
class UpdateLock {
 public:
  /// Throws UpdateRunning when the lock stays taken for a quarter of a second, and FileError when
  /// the lock file cannot be opened. The lock file stays in the directory and is always empty.
  explicit UpdateLock(const std::string& programDirectory);

 private:
  File file_;
  ComputerLock lock_;
};

}  // namespace repvolta
