#pragma once

#include <cerrno>
#include <filesystem>
#include <string>
#include <sys/syscall.h>
#include <system_error>
#include <unistd.h>

namespace repvolta {

/// While this object exists, closing a file with the name `name` reports an error, as on a network
/// file system that could not store the data.
class FailingClose {
 public:
  explicit FailingClose(const std::string& name) { Name() = name; }
  ~FailingClose() { Name().clear(); }
  FailingClose(const FailingClose&) = delete;
  FailingClose& operator=(const FailingClose&) = delete;

  static bool IsFor(int descriptor) {
    if (Name().empty()) return false;
    std::error_code error;
    const auto link = "/proc/self/fd/" + std::to_string(descriptor);
    return std::filesystem::read_symlink(link, error).filename() == Name();
  }

 private:
  static std::string& Name() {
    static std::string name;
    return name;
  }
};

}  // namespace repvolta

/// Replaces the system's close in the test program. A failing call still closes the descriptor.
extern "C" __attribute__((used)) inline int close(int descriptor) {
  const bool fails = repvolta::FailingClose::IsFor(descriptor);
  const auto result = static_cast<int>(syscall(SYS_close, descriptor));
  if (fails) errno = EIO;
  return fails ? -1 : result;
}
