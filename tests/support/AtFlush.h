#pragma once

#include <functional>
#include <sys/syscall.h>
#include <unistd.h>
#include <utility>

namespace repvolta {

/// Calls `then` at the next flush of a file: stands for another program that acts in the middle of
/// a save.
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

/// Replaces the system's fsync in the test program.
extern "C" __attribute__((used)) inline int fsync(int descriptor) {
  const auto then = std::exchange(repvolta::AtFlush::Then(), nullptr);
  if (then) then();
  return static_cast<int>(syscall(SYS_fsync, descriptor));
}
