#include "base/WorkingFile.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <thread>

#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Lock.h"

namespace repvolta {
namespace {

constexpr unsigned kPrivate = 0600;
constexpr int kAttempts = 100;
constexpr std::chrono::milliseconds kPause{10};
constexpr const char* kFailure = "could not be written";

/// False when another process holds the lock. A file system without locks grants every one.
bool Lock(const Descriptor& descriptor) { return TryLock(descriptor) != EWOULDBLOCK; }

/// Removes what stands at `name`, unless a process has it locked. A name is only ever removed by
/// the one who holds the lock of the file behind it, so nobody loses a file that is being written.
void RemoveAbandoned(const std::string& name) {
  const Descriptor found = OpenDescriptor(name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
  const bool isLink = !found.IsOpen() && errno == ELOOP;
  if (isLink || (found.IsOpen() && Lock(found) && IsStillAt(found, name))) RemoveFile(name);
}

}  // namespace

std::string WorkingName(const std::string& path) {
  return FolderOf(path) + AsFileName("." + FileName(path), ".new");
}

File CreateWorkingFile(const std::string& path) {
  const std::string name = WorkingName(path);
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    try {
      File file = File::CreateNew(name, kPrivate);
      if (Lock(file.OpenAs()) && IsStillAt(file.OpenAs(), name)) return file;
    } catch (const FileError& error) {
      if (error.Error() != EEXIST) throw FileError(path, kFailure, error.Reason());
    }
    try {
      RemoveAbandoned(name);
    } catch (const FileError& error) {
      throw FileError(path, kFailure, error.Reason());
    }
    // The first time round there is usually nothing to wait for.
    if (attempt > 0) std::this_thread::sleep_for(kPause);
  }
  throw FileError(path, kFailure, "Another program is writing it");
}

}  // namespace repvolta
