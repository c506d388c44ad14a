#include "platform/UpdateLock.h"

#include <cerrno>
#include <chrono>
#include <sys/file.h>
#include <thread>

#include "base/FileError.h"

namespace repvolta {
namespace {

constexpr int kAttempts = 25;
constexpr std::chrono::milliseconds kPause{10};

}  // namespace

UpdateLock::UpdateLock(const std::string& programDirectory)
    : file_(File::OpenOrCreate(programDirectory + kUpdateLockFile)) {
  // A program that was killed while it started a child leaves the lock to that for a moment.
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    if (flock(file_.Descriptor(), LOCK_EX | LOCK_NB) == 0) return;
    if (errno != EWOULDBLOCK && errno != EINTR) {
      throw FileError(file_.Path(), "could not be locked", errno);
    }
    std::this_thread::sleep_for(kPause);
  }
  throw UpdateRunning("Another update of " + programDirectory + " is running");
}

}  // namespace repvolta
