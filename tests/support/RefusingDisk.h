#pragma once

#include <cerrno>
#include <cstdarg>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace repvolta {

/// While this object exists, no file or folder is created in an opened folder under a name with one
/// of the characters, as on exFAT; and no file that is there is opened for writing if that is asked
/// for, as on a phone.
class RefusingDisk {
 public:
  enum class Writing { kAlways, kOnce };

  explicit RefusingDisk(std::string_view characters, int error = ENOENT,
                        Writing writing = Writing::kAlways) {
    Current() = {characters, error, writing};
  }
  ~RefusingDisk() { Current() = {}; }
  RefusingDisk(const RefusingDisk&) = delete;
  RefusingDisk& operator=(const RefusingDisk&) = delete;

  /// 0, or the errno value.
  static int Refusal(std::string_view name, int flags) {
    const Habits& habits = Current();
    if ((flags & O_CREAT) != 0) {
      const bool isHeld = name.find_first_of(habits.characters) == std::string_view::npos;
      return isHeld ? 0 : habits.error;
    }
    const bool isWritten = (flags & O_ACCMODE) != O_RDONLY && (flags & O_PATH) == 0;
    return isWritten && habits.writing == Writing::kOnce ? ENOTSUP : 0;
  }

 private:
  struct Habits {
    std::string_view characters;
    int error = 0;
    Writing writing = Writing::kAlways;
  };

  static Habits& Current() {
    static Habits habits;
    return habits;
  }
};

}  // namespace repvolta

/// Replace the system's openat and mkdirat in the test program.
extern "C" __attribute__((used)) inline int openat(int folder, const char* path, int flags, ...) {
  std::va_list arguments;
  va_start(arguments, flags);
  const unsigned mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, unsigned) : 0;
  va_end(arguments);
  if (const int error = repvolta::RefusingDisk::Refusal(path, flags)) {
    errno = error;
    return -1;
  }
  return static_cast<int>(syscall(SYS_openat, folder, path, flags, mode));
}

extern "C" __attribute__((used)) inline int mkdirat(int folder, const char* path,
                                                    mode_t mode) noexcept {
  if (const int error = repvolta::RefusingDisk::Refusal(path, O_CREAT)) {
    errno = error;
    return -1;
  }
  return static_cast<int>(syscall(SYS_mkdirat, folder, path, mode));
}
