#pragma once

#include <cerrno>
#include <filesystem>
#include <string>
#include <sys/syscall.h>
#include <system_error>
#include <unistd.h>

namespace repvolta {

/// While it lives no file with the name `name` can be closed without an error, as where a file
/// system on a network cannot keep what was written.
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

/// Takes the place of the system's in the test program. What fails is closed all the same.
extern "C" __attribute__((used)) inline int close(int descriptor) {
  const bool fails = repvolta::FailingClose::IsFor(descriptor);
  const auto result = static_cast<int>(syscall(SYS_close, descriptor));
  if (fails) errno = EIO;
  return fails ? -1 : result;
}
