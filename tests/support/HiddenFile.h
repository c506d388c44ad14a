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
/// shows a copy only after a while. They can still be opened.
class HiddenFile {
 public:
  explicit HiddenFile(const std::string& name) { Name() = name; }
  ~HiddenFile() { Name().clear(); }
  HiddenFile(const HiddenFile&) = delete;
  HiddenFile& operator=(const HiddenFile&) = delete;

  static void Show() { Name().clear(); }

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
    errno = ENOENT;
    return -1;
  }
  return static_cast<int>(syscall(SYS_newfstatat, AT_FDCWD, path, status, 0));
}

extern "C" __attribute__((used)) inline int fstatat(int folder, const char* path,
                                                    struct stat* status, int flags) noexcept {
  if (repvolta::HiddenFile::Hides(path)) {
    errno = ENOENT;
    return -1;
  }
  return static_cast<int>(syscall(SYS_newfstatat, folder, path, status, flags));
}
