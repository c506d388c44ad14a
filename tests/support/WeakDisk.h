#pragma once

#include <cerrno>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace repvolta {

/// While this object exists, a flush and a change of permissions fail with these errors, as on a
/// disk that can do neither; 0 lets them pass.
class WeakDisk {
 public:
  struct Answers {
    int flush = 0;
    int permissions = 0;
  };

  explicit WeakDisk(Answers answers) { Current() = answers; }
  ~WeakDisk() { Current() = {}; }
  WeakDisk(const WeakDisk&) = delete;
  WeakDisk& operator=(const WeakDisk&) = delete;

  static Answers& Current() {
    static Answers answers;
    return answers;
  }

  /// What a system call returns for the answer.
  static int Fail(int error) {
    errno = error;
    return -1;
  }
};

}  // namespace repvolta

/// Replace the system's fsync and fchmod in the test program.
extern "C" __attribute__((used)) inline int fsync(int descriptor) {
  const int error = repvolta::WeakDisk::Current().flush;
  if (error != 0) return repvolta::WeakDisk::Fail(error);
  return static_cast<int>(syscall(SYS_fsync, descriptor));
}

extern "C" __attribute__((used)) inline int fchmod(int descriptor, mode_t mode) noexcept {
  const int error = repvolta::WeakDisk::Current().permissions;
  if (error != 0) return repvolta::WeakDisk::Fail(error);
  return static_cast<int>(syscall(SYS_fchmod, descriptor, mode));
}
