#pragma once

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace repvolta {

/// While this object exists, locks are those of a network file system: with an error, it has none;
/// without, it locks only what is open for writing.
class WeakLocks {
 public:
  explicit WeakLocks(int error = 0) { Current() = {.isWeak = true, .error = error}; }
  ~WeakLocks() { Current() = {}; }
  WeakLocks(const WeakLocks&) = delete;
  WeakLocks& operator=(const WeakLocks&) = delete;

  /// The error of locking the open file; 0 when it can be locked.
  static int ErrorOf(int descriptor) {
    if (!Current().isWeak || Current().error != 0) return Current().error;
    return (fcntl(descriptor, F_GETFL) & O_ACCMODE) == O_RDONLY ? EBADF : 0;
  }

 private:
  struct Answer {
    bool isWeak = false;
    int error = 0;
  };

  static Answer& Current() {
    static Answer answer;
    return answer;
  }
};

}  // namespace repvolta

/// Replaces the system's flock in the test program.
extern "C" __attribute__((used)) inline int flock(int descriptor, int operation) noexcept {
  const int error = repvolta::WeakLocks::ErrorOf(descriptor);
  if (error == 0) return static_cast<int>(syscall(SYS_flock, descriptor, operation));
  errno = error;
  return -1;
}
