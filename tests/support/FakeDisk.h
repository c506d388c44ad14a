#pragma once

#include <cerrno>
#include <cstdint>
#include <dlfcn.h>
#include <optional>
#include <sys/statvfs.h>

namespace repvolta {

/// While this object exists, every disk says that it has this room; without figures, that it cannot
/// tell.
class FakeDisk {
 public:
  struct Figures {
    std::uint64_t free = 0;   // bytes
    std::uint64_t whole = 0;  // bytes
    std::uint64_t unit = 1;
  };

  explicit FakeDisk(std::optional<Figures> figures) {
    Active() = true;
    Now() = figures;
  }
  ~FakeDisk() { Active() = false; }
  FakeDisk(const FakeDisk&) = delete;
  FakeDisk& operator=(const FakeDisk&) = delete;

  static bool& Active() {
    static bool active = false;
    return active;
  }
  static std::optional<Figures>& Now() {
    static std::optional<Figures> figures;
    return figures;
  }
};

/// A disk with so much room left, in units of one byte.
inline FakeDisk::Figures Free(std::uint64_t bytes) {
  return {.free = bytes, .whole = 1'000'000'000'000, .unit = 1};
}

}  // namespace repvolta

/// Replaces the system's statvfs in the test program.
extern "C" __attribute__((used)) inline int statvfs(const char* path,
                                                    struct statvfs* disk) noexcept {
  using repvolta::FakeDisk;
  if (!FakeDisk::Active()) {
    const auto real = reinterpret_cast<decltype(&statvfs)>(dlsym(RTLD_NEXT, "statvfs"));
    return real(path, disk);
  }
  if (!FakeDisk::Now()) {
    errno = ENOSYS;
    return -1;
  }
  const FakeDisk::Figures& figures = *FakeDisk::Now();
  *disk = {};
  disk->f_bsize = disk->f_frsize = figures.unit;
  disk->f_blocks = figures.whole / figures.unit;
  disk->f_bfree = disk->f_bavail = figures.free / figures.unit;
  return 0;
}
