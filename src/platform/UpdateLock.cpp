#include "platform/UpdateLock.h"

#include <cerrno>
#include <sys/file.h>

#include "base/FileError.h"

namespace repvolta {

UpdateLock::UpdateLock(const std::string& programDirectory)
    : file_(File::OpenOrCreate(programDirectory + kUpdateLockFile)) {
  while (flock(file_.Descriptor(), LOCK_EX | LOCK_NB) != 0) {
    if (errno == EWOULDBLOCK) {
      throw UpdateRunning("Another update of " + programDirectory + " is running");
    }
    if (errno != EINTR) throw FileError(file_.Path(), "could not be locked", errno);
  }
}

}  // namespace repvolta
