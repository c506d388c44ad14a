#include "base/Lock.h"

#include <cstddef>
#include <cstdio>
#include <span>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

namespace repvolta {
namespace {

/// A name for sockets that no file system keeps and that ends with its process. It tells the file
/// or folder by its device and number.
sockaddr_un NameOf(const struct stat& status) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  // The name begins with a zero byte.
  const std::span<char> name = std::span(address.sun_path).subspan(1);
  static_cast<void>(std::snprintf(name.data(), name.size(), "repvolta-%llx-%llx",
                                  static_cast<unsigned long long>(status.st_dev),
                                  static_cast<unsigned long long>(status.st_ino)));
  return address;
}

}  // namespace

int TryLock(const Descriptor& descriptor) {
  const auto lock = [&] { return flock(descriptor.Number(), LOCK_EX | LOCK_NB); };
  return Uninterrupted(lock) == 0 ? 0 : errno;
}

int ComputerLock::Try(const Descriptor& descriptor) {
  const int error = TryLock(descriptor);
  if (error == 0 || error == EWOULDBLOCK) return error;
  struct stat status{};
  if (fstat(descriptor.Number(), &status) != 0) return errno;
  standIn_ = Descriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
  if (!standIn_.IsOpen()) return errno;
  const sockaddr_un address = NameOf(status);
  const auto* plain = reinterpret_cast<const sockaddr*>(&address);
  if (bind(standIn_.Number(), plain, sizeof address) == 0) return 0;
  return errno == EADDRINUSE ? EWOULDBLOCK : errno;
}

}  // namespace repvolta
