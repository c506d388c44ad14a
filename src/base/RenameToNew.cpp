#include "base/RenameToNew.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>

#include "base/FileError.h"
#include "base/Folder.h"

namespace repvolta {
namespace {

/// For disks that cannot do both in one step. Returns 0 or the errno value.
int CheckAndRename(const std::string& from, const std::string& to) {
  if (IsTaken(to)) return EEXIST;
  return std::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

}  // namespace

void RenameToNew(const std::string& from, const std::string& to) {
  int error = 0;
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) != 0) {
    error = errno == EINVAL || errno == ENOSYS ? CheckAndRename(from, to) : errno;
  }
  if (error != 0) throw FileError(from, "could not be renamed to " + to, error);
}

}  // namespace repvolta
