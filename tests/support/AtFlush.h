#pragma once

#include <functional>
#include <sys/syscall.h>
#include <unistd.h>
#include <utility>

namespace repvolta {

/// Calls `then` when a file is next flushed to the device: what another program does between the
/// beginning and the end of a save.
class AtFlush {
 public:
  explicit AtFlush(std::function<void()> then) { Then() = std::move(then); }
  ~AtFlush() { Then() = nullptr; }
  AtFlush(const AtFlush&) = delete;
  AtFlush& operator=(const AtFlush&) = delete;

  static std::function<void()>& Then() {
    static std::function<void()> then;
    return then;
  }
};

}  // namespace repvolta

/// Takes the place of the system's in the test program.
extern "C" __attribute__((used)) inline int fsync(int descriptor) {
  const auto then = std::exchange(repvolta::AtFlush::Then(), nullptr);
  if (then) then();
  return static_cast<int>(syscall(SYS_fsync, descriptor));
}
