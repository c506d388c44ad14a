#pragma once

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace repvolta {

/// While this object exists, stat does not find files with the name `name`, as on a player that
/// shows a copy only after a while; or it fails with another error, as where the disk refuses the
/// name. They can still be opened.
class HiddenFile {
 public:
  explicit HiddenFile(const std::string& name, int error = ENOENT) {
    Name() = name;
    Error() = error;
  }
  ~HiddenFile() { Name().clear(); }
  HiddenFile(const HiddenFile&) = delete;
  HiddenFile& operator=(const HiddenFile&) = delete;

  static void Show() { Name().clear(); }

  static int& Error() {
    static int error = ENOENT;
    return error;
  }

  static bool Hides(std::string_view path) { return !Name().empty() && path.ends_with(Name()); }

 private:
  static std::string& Name() {
    static std::string name;
    return name;
  }
};

}  // namespace repvolta

/// Replace the system's stat and fstatat in the test program.
extern "C" __attribute__((used)) inline int stat(const char* path, struct stat* status) noexcept {
  if (repvolta::HiddenFile::Hides(path)) {
    errno = repvolta::HiddenFile::Error();
    return -1;
  }
  return static_cast<int>(syscall(SYS_newfstatat, AT_FDCWD, path, status, 0));
}

extern "C" __attribute__((used)) inline int fstatat(int folder, const char* path,
                                                    struct stat* status, int flags) noexcept {
  if (repvolta::HiddenFile::Hides(path)) {
    errno = repvolta::HiddenFile::Error();
    return -1;
  }
  return static_cast<int>(syscall(SYS_newfstatat, folder, path, status, flags));
}
