#include "update/UpdateLock.h"

#include <cerrno>
#include <chrono>
#include <thread>

#include "base/FileError.h"
#include "base/ProgramFiles.h"

namespace repvolta {
namespace {

constexpr int kAttempts = 25;
constexpr std::chrono::milliseconds kPause{10};

}  // namespace

UpdateLock::UpdateLock(const std::string& programDirectory)
    : file_(File::OpenOrCreate(programDirectory + kUpdateLockFile)) {
  // When a program is killed while starting a child, the child holds the lock for a moment.
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    const int error = lock_.Try(file_.OpenAs());
    if (error == 0) return;
    if (error != EWOULDBLOCK) throw FileError(file_.Path(), "could not be locked", error);
    std::this_thread::sleep_for(kPause);
  }
  throw UpdateRunning("Another update of " + programDirectory + " is running");
}

}  // namespace repvolta
