#pragma once

#include <cstdarg>
#include <fcntl.h>
#include <functional>
#include <string>
#include <string_view>
#include <sys/syscall.h>
#include <unistd.h>
#include <utility>

namespace repvolta {

/// Calls `then` when a file is next opened whose path ends in `name`: stands for another program
/// that acts in the middle of a step.
class AtOpening {
 public:
  AtOpening(std::string name, std::function<void()> then) {
    Current() = {std::move(name), std::move(then)};
  }
  ~AtOpening() { Current() = {}; }
  AtOpening(const AtOpening&) = delete;
  AtOpening& operator=(const AtOpening&) = delete;

  static void Opens(std::string_view path) {
    if (!Current().then || !path.ends_with(Current().name)) return;
    const auto then = std::exchange(Current().then, nullptr);
    then();
  }

 private:
  struct Action {
    std::string name;
    std::function<void()> then;
  };

  static Action& Current() {
    static Action action;
    return action;
  }
};

}  // namespace repvolta

/// Replaces the system's open in the test program.
extern "C" __attribute__((used)) inline int open(const char* path, int flags, ...) {
  std::va_list arguments;
  va_start(arguments, flags);
  const unsigned mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, unsigned) : 0;
  va_end(arguments);
  repvolta::AtOpening::Opens(path);
  return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}
