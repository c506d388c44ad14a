#include "base/Descriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace repvolta {

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
  if (this != &other) {
    Close();
    number_ = std::exchange(other.number_, -1);
  }
  return *this;
}

void Descriptor::Close() noexcept {
  if (IsOpen()) close(std::exchange(number_, -1));
}

Descriptor OpenDescriptor(const std::string& path, int flags, unsigned mode) {
  return Descriptor(Uninterrupted([&] { return open(path.c_str(), flags | O_CLOEXEC, mode); }));
}

bool IsStillAt(const Descriptor& descriptor, const std::string& name) {
  struct stat open{};
  struct stat named{};
  return fstat(descriptor.Number(), &open) == 0 && lstat(name.c_str(), &named) == 0 &&
         open.st_dev == named.st_dev && open.st_ino == named.st_ino;
}

}  // namespace repvolta
