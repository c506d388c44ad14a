#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <unistd.h>

namespace repvolta {

/// While this object exists, temporary folders lie in the computer's memory, if there is a disk of
/// it: for tests that write so many files that flushing them would take half a minute.
class MemoryDisk {
 public:
  MemoryDisk() {
    const char* before = std::getenv(kPlace);
    if (before != nullptr) before_ = before;
    if (access(kDisk, W_OK) == 0) setenv(kPlace, kDisk, 1);
  }
  ~MemoryDisk() {
    if (before_) {
      setenv(kPlace, before_->c_str(), 1);
    } else {
      unsetenv(kPlace);
    }
  }
  MemoryDisk(const MemoryDisk&) = delete;
  MemoryDisk& operator=(const MemoryDisk&) = delete;

 private:
  static constexpr const char* kPlace = "TMPDIR";
  static constexpr const char* kDisk = "/dev/shm";

  std::optional<std::string> before_;
};

}  // namespace repvolta
