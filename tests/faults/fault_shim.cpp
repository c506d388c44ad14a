// Preloaded into a program under test. It counts the program's system calls, makes chosen ones
// fail, and traces what the program does to files and which programs it starts.
//
//   REPVOLTA_FAULT   GROUP:NUMBER:FAILURE. The call with this number in its group fails; "3+" fails
//                    the third and all behind it; the group "any" has all calls. FAILURE is the
//                    name of an error; or SHORT: half of the bytes are read or written; or KILL:
//                    the program is killed before the call; or UNTYPED: the entry of a
//                    folder comes without its type.
//   REPVOLTA_UNTYPED when it is set, no entry of a folder comes with its type.
//   REPVOLTA_TRACE   the file that receives one line a call: GROUP, NUMBER, "ok" or "failed", and
//                    what the call was about.
//
// Only the program itself is counted, and the start of its children up to their exec; the children
// run without all this.

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdarg>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <iterator>
#include <sched.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

#include "fault_plan.h"

namespace {

using namespace repvolta_faults;

template <class Function>
Function* Real(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// The path with which the descriptor was opened, for the trace.
class DescriptorPath {
 public:
  explicit DescriptorPath(int descriptor) {
    char link[32] = "/proc/self/fd/";
    std::to_chars(link + std::strlen(link), std::end(link) - 1, descriptor);
    const long size = syscall(SYS_readlink, link, path_, sizeof path_ - 1);
    path_[size > 0 ? size : 0] = '\0';
  }
  const char* Text() const { return path_; }

 private:
  char path_[700];
};

/// The number of bytes that a read or write may transfer: fewer in a short one, -1 when it must
/// fail.
ssize_t Allowed(Group group, int descriptor, std::size_t size) {
  const int before = errno;
  const int error = Count(group, DescriptorPath(descriptor).Text());
  errno = before;
  if (error == kShort) return static_cast<ssize_t>(size > 1 ? size / 2 : size);
  if (error == 0) return static_cast<ssize_t>(size);
  errno = error;
  return -1;
}

unsigned ModeOf(int flags, va_list arguments) {
  return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, unsigned) : 0;
}

int OpenAt(int folder, const char* path, int flags, unsigned mode) {
  if (Fails(kOpen, path)) return -1;
  return static_cast<int>(syscall(SYS_openat, folder, path, flags, mode));
}

/// `status` is a struct stat or stat64, which are the same on 64-bit systems.
int StatusAt(int folder, const char* path, void* status, int flags) {
  if (Fails(kStat, path)) return -1;
  return static_cast<int>(syscall(SYS_newfstatat, folder, path, status, flags));
}

}  // namespace

// Names and parameters are those of the C library.
// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,readability-function-size)
#define EXPORTED extern "C" __attribute__((visibility("default")))

EXPORTED int open(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const unsigned mode = ModeOf(flags, arguments);
  va_end(arguments);
  return OpenAt(AT_FDCWD, path, flags, mode);
}
EXPORTED int open64(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const unsigned mode = ModeOf(flags, arguments);
  va_end(arguments);
  return OpenAt(AT_FDCWD, path, flags, mode);
}
EXPORTED int openat(int folder, const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const unsigned mode = ModeOf(flags, arguments);
  va_end(arguments);
  return OpenAt(folder, path, flags, mode);
}
EXPORTED int openat64(int folder, const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const unsigned mode = ModeOf(flags, arguments);
  va_end(arguments);
  return OpenAt(folder, path, flags, mode);
}
// Fortified builds call these.
EXPORTED int __open_2(const char* path, int flags) { return OpenAt(AT_FDCWD, path, flags, 0); }
EXPORTED int __open64_2(const char* path, int flags) { return OpenAt(AT_FDCWD, path, flags, 0); }

EXPORTED ssize_t write(int descriptor, const void* bytes, std::size_t size) {
  const ssize_t allowed = Allowed(kWrite, descriptor, size);
  return allowed < 0 ? -1 : syscall(SYS_write, descriptor, bytes, allowed);
}
EXPORTED ssize_t pwrite(int descriptor, const void* bytes, std::size_t size, off_t offset) {
  const ssize_t allowed = Allowed(kWrite, descriptor, size);
  return allowed < 0 ? -1 : syscall(SYS_pwrite64, descriptor, bytes, allowed, offset);
}
EXPORTED ssize_t pwrite64(int descriptor, const void* bytes, std::size_t size, off64_t offset) {
  return pwrite(descriptor, bytes, size, offset);
}
EXPORTED ssize_t copy_file_range(int from, off64_t* read, int to, off64_t* written,
                                 std::size_t size, unsigned flags) {
  const ssize_t allowed = Allowed(kWrite, to, size);
  return allowed < 0 ? -1 : syscall(SYS_copy_file_range, from, read, to, written, allowed, flags);
}
EXPORTED ssize_t read(int descriptor, void* bytes, std::size_t size) {
  const ssize_t allowed = Allowed(kRead, descriptor, size);
  return allowed < 0 ? -1 : syscall(SYS_read, descriptor, bytes, allowed);
}
EXPORTED ssize_t pread(int descriptor, void* bytes, std::size_t size, off_t offset) {
  const ssize_t allowed = Allowed(kRead, descriptor, size);
  return allowed < 0 ? -1 : syscall(SYS_pread64, descriptor, bytes, allowed, offset);
}
EXPORTED ssize_t pread64(int descriptor, void* bytes, std::size_t size, off64_t offset) {
  return pread(descriptor, bytes, size, offset);
}
EXPORTED ssize_t __read_chk(int descriptor, void* bytes, std::size_t size, std::size_t) {
  return read(descriptor, bytes, size);
}
EXPORTED ssize_t __pread_chk(int descriptor, void* bytes, std::size_t size, off_t offset,
                             std::size_t) {
  return pread(descriptor, bytes, size, offset);
}
EXPORTED ssize_t __pread64_chk(int descriptor, void* bytes, std::size_t size, off64_t offset,
                               std::size_t) {
  return pread(descriptor, bytes, size, offset);
}

EXPORTED int fsync(int descriptor) {
  if (Fails(kFlush, DescriptorPath(descriptor).Text())) return -1;
  return static_cast<int>(syscall(SYS_fsync, descriptor));
}

EXPORTED int rename(const char* from, const char* to) noexcept {
  if (Fails(kRename, to)) return -1;
  return static_cast<int>(syscall(SYS_rename, from, to));
}

EXPORTED int mkdir(const char* path, mode_t mode) noexcept {
  if (Fails(kMkdir, path)) return -1;
  return static_cast<int>(syscall(SYS_mkdir, path, mode));
}
EXPORTED char* mkdtemp(char* pattern) noexcept {
  if (Fails(kMkdir, pattern)) return nullptr;
  return Real<char*(char*)>("mkdtemp")(pattern);
}

EXPORTED int unlink(const char* path) noexcept {
  if (Fails(kUnlink, path)) return -1;
  return static_cast<int>(syscall(SYS_unlink, path));
}
EXPORTED int unlinkat(int folder, const char* path, int flags) noexcept {
  if (Fails(kUnlink, path)) return -1;
  return static_cast<int>(syscall(SYS_unlinkat, folder, path, flags));
}
EXPORTED int rmdir(const char* path) noexcept {
  if (Fails(kUnlink, path)) return -1;
  return static_cast<int>(syscall(SYS_rmdir, path));
}
EXPORTED int remove(const char* path) noexcept {
  if (Fails(kUnlink, path)) return -1;
  return Real<int(const char*)>("remove")(path);
}

EXPORTED DIR* opendir(const char* path) {
  if (Fails(kList, path)) return nullptr;
  return Real<DIR*(const char*)>("opendir")(path);
}
EXPORTED DIR* fdopendir(int descriptor) {
  if (Fails(kList, DescriptorPath(descriptor).Text())) return nullptr;
  return Real<DIR*(int)>("fdopendir")(descriptor);
}
EXPORTED dirent* readdir(DIR* folder) {
  const int before = errno;
  const int error = Count(kList, "an entry");
  errno = error > 0 ? error : before;
  if (error > 0) return nullptr;
  dirent* const entry = Real<dirent*(DIR*)>("readdir")(folder);
  if (entry != nullptr && (error == kUntyped || HidesTypes())) entry->d_type = DT_UNKNOWN;
  return entry;
}

EXPORTED int fchmod(int descriptor, mode_t mode) noexcept {
  if (Fails(kMode, DescriptorPath(descriptor).Text())) return -1;
  return static_cast<int>(syscall(SYS_fchmod, descriptor, mode));
}
EXPORTED int fchmodat(int folder, const char* path, mode_t mode, int flags) noexcept {
  if (Fails(kMode, path)) return -1;
  return Real<int(int, const char*, mode_t, int)>("fchmodat")(folder, path, mode, flags);
}
EXPORTED int fchown(int descriptor, uid_t user, gid_t group) noexcept {
  if (Fails(kMode, DescriptorPath(descriptor).Text())) return -1;
  return static_cast<int>(syscall(SYS_fchown, descriptor, user, group));
}
EXPORTED int utimensat(int folder, const char* path, const timespec times[2], int flags) noexcept {
  if (Fails(kMode, path)) return -1;
  return static_cast<int>(syscall(SYS_utimensat, folder, path, times, flags));
}

EXPORTED int stat(const char* path, struct stat* status) noexcept {
  return StatusAt(AT_FDCWD, path, status, 0);
}
EXPORTED int stat64(const char* path, struct stat64* status) noexcept {
  return StatusAt(AT_FDCWD, path, status, 0);
}
EXPORTED int lstat(const char* path, struct stat* status) noexcept {
  return StatusAt(AT_FDCWD, path, status, AT_SYMLINK_NOFOLLOW);
}
EXPORTED int lstat64(const char* path, struct stat64* status) noexcept {
  return StatusAt(AT_FDCWD, path, status, AT_SYMLINK_NOFOLLOW);
}
EXPORTED int fstatat(int folder, const char* path, struct stat* status, int flags) noexcept {
  return StatusAt(folder, path, status, flags);
}
EXPORTED int fstatat64(int folder, const char* path, struct stat64* status, int flags) noexcept {
  return StatusAt(folder, path, status, flags);
}
EXPORTED int fstat(int descriptor, struct stat* status) noexcept {
  if (Fails(kStat, DescriptorPath(descriptor).Text())) return -1;
  return static_cast<int>(syscall(SYS_fstat, descriptor, status));
}
EXPORTED int fstat64(int descriptor, struct stat64* status) noexcept {
  if (Fails(kStat, DescriptorPath(descriptor).Text())) return -1;
  return static_cast<int>(syscall(SYS_fstat, descriptor, status));
}
EXPORTED int statx(int folder, const char* path, int flags, unsigned mask,
                   struct statx* status) noexcept {
  if (Fails(kStat, path)) return -1;
  return static_cast<int>(syscall(SYS_statx, folder, path, flags, mask, status));
}

/// A failing close still closes the descriptor, as on Linux.
EXPORTED int close(int descriptor) {
  const bool fails = Fails(kClose, DescriptorPath(descriptor).Text());
  const int error = errno;
  const auto result = static_cast<int>(syscall(SYS_close, descriptor));
  if (fails) errno = error;
  return fails ? -1 : result;
}
EXPORTED int flock(int descriptor, int operation) noexcept {
  if (Fails(kLock, DescriptorPath(descriptor).Text())) return -1;
  return static_cast<int>(syscall(SYS_flock, descriptor, operation));
}

EXPORTED pid_t fork() noexcept {
  if (Fails(kFork, "fork")) return -1;
  return Real<pid_t()>("fork")();
}
EXPORTED int clone(int (*function)(void*), void* stack, int flags, void* argument, ...) noexcept {
  va_list arguments;
  va_start(arguments, argument);
  void* const parent = va_arg(arguments, void*);
  void* const storage = va_arg(arguments, void*);
  void* const child = va_arg(arguments, void*);
  va_end(arguments);
  if ((flags & CLONE_THREAD) == 0 && Fails(kFork, "clone")) return -1;
  using Clone = int(int (*)(void*), void*, int, void*, ...);
  return Real<Clone>("clone")(function, stack, flags, argument, parent, storage, child);
}
EXPORTED int execve(const char* path, char* const arguments[], char* const environment[]) noexcept {
  if (Fails(kExec, path)) return -1;
  return static_cast<int>(syscall(SYS_execve, path, arguments, environment));
}
EXPORTED int execv(const char* path, char* const arguments[]) noexcept {
  return execve(path, arguments, environ);
}
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,readability-function-size)
