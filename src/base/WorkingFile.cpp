#include "base/WorkingFile.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Lock.h"

namespace repvolta {
namespace {

constexpr unsigned kPrivate = 0600;
constexpr int kAttempts = 100;
constexpr std::chrono::milliseconds kPause{10};
constexpr const char* kFailure = "could not be written";
constexpr const char* kInUse = "Another program is writing it";

/// False when another process holds the lock. A file system without locks grants every one.
bool Lock(const Descriptor& descriptor) { return TryLock(descriptor) != EWOULDBLOCK; }

/// Opened for writing where that is allowed: a network file system locks no other files.
Descriptor OpenToLock(const std::string& name) {
  constexpr int kFlags = O_NOFOLLOW | O_NONBLOCK;
  Descriptor writable = OpenDescriptor(name, O_RDWR | kFlags);
  return writable.IsOpen() ? std::move(writable) : OpenDescriptor(name, O_RDONLY | kFlags);
}

bool IsDenied(int error) { return error == EACCES || error == EPERM; }

std::string UserName(uid_t user) {
  const passwd* entry = getpwuid(user);
  return entry == nullptr ? std::to_string(user) : entry->pw_name;
}

/// Why access to `name` is denied: it belongs to another user, or `otherwise`.
std::string ReasonOfDenial(const std::string& name, const std::string& otherwise) {
  struct stat status{};
  if (lstat(name.c_str(), &status) != 0 || status.st_uid == geteuid()) return otherwise;
  return FileName(name) + " belongs to user " + UserName(status.st_uid) + " and cannot be removed";
}

/// Removes `name` unless a process has it locked. Only the holder of a file's lock ever removes its
/// name, so no process loses a file that it is writing. Returns why the file may have to stay;
/// throws FileError when it cannot be removed.
std::string RemoveAbandoned(const std::string& name) {
  const Descriptor found = OpenToLock(name);
  const int error = found.IsOpen() ? 0 : errno;
  if (IsDenied(error)) return ReasonOfDenial(name, kInUse);
  try {
    if (error == ELOOP || (error == 0 && Lock(found) && IsStillAt(found, name))) RemoveFile(name);
  } catch (const FileError& failure) {
    throw FileError(
        name, kFailure,
        IsDenied(failure.Error()) ? ReasonOfDenial(name, failure.Reason()) : failure.what());
  }
  return kInUse;
}

}  // namespace

std::string WorkingName(const std::string& path) {
  return FolderOf(path) + AsFileName("." + FileName(path), ".new");
}

File CreateWorkingFile(const std::string& path) {
  const std::string name = WorkingName(path);
  std::string reason;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    try {
      File file = File::CreateNew(name, kPrivate);
      if (Lock(file.OpenAs()) && IsStillAt(file.OpenAs(), name)) return file;
    } catch (const FileError& error) {
      if (error.Error() != EEXIST) throw FileError(path, kFailure, error.Reason());
    }
    try {
      reason = RemoveAbandoned(name);
    } catch (const FileError& error) {
      throw FileError(path, kFailure, error.Reason());
    }
    // The first attempt usually succeeds.
    if (attempt > 0) std::this_thread::sleep_for(kPause);
  }
  throw FileError(path, kFailure, reason);
}

}  // namespace repvolta
