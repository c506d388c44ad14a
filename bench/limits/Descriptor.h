#pragma once

#include <cerrno>
#include <fcntl.h>
#include <stdexcept>
#include <string>
#include <system_error>
#include <unistd.h>

#include "base/Bytes.h"

namespace repvolta::limits {

/// A file that its destructor closes.
class Descriptor {
 public:
  Descriptor(const std::string& path, int flags) : number_(open(path.c_str(), flags, 0666)) {
    if (number_ < 0) Fail(path);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { close(number_); }

  int Number() const { return number_; }

  std::size_t ReadAt(std::uint64_t offset, Byte* bytes, std::size_t count) const {
    const ssize_t read = pread(number_, bytes, count, static_cast<off_t>(offset));
    if (read < 0) Fail("pread");
    return static_cast<std::size_t>(read);
  }

  void Write(const Byte* bytes, std::size_t count) const {
    while (count > 0) {
      const ssize_t written = write(number_, bytes, count);
      if (written < 0) Fail("write");
      bytes += written;
      count -= static_cast<std::size_t>(written);
    }
  }

  void WriteAt(std::uint64_t offset, const Byte* bytes, std::size_t count) const {
    if (pwrite(number_, bytes, count, static_cast<off_t>(offset)) < 0) Fail("pwrite");
  }

  std::uint64_t Size() const { return static_cast<std::uint64_t>(lseek(number_, 0, SEEK_END)); }

 private:
  [[noreturn]] static void Fail(const std::string& what) {
    throw std::system_error(errno, std::generic_category(), what);
  }

  int number_;
};

}  // namespace repvolta::limits
