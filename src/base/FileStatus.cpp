#include "base/FileStatus.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

#include "base/FileError.h"

namespace repvolta {

std::optional<struct stat> StatusOf(const std::string& path, Links links) {
  struct stat status{};
  const auto look = links == Links::kFollowed ? stat : lstat;
  if (look(path.c_str(), &status) == 0) return status;
  for (const int missing : {ENOENT, ENOTDIR, ELOOP, ENAMETOOLONG}) {
    if (errno == missing) return std::nullopt;
  }
  throw FileError(path, "could not be looked at", errno);
}

int ErrorOfWritingTo(const std::string& path) {
  return faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0 ? 0 : errno;
}

}  // namespace repvolta
