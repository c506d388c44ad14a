#include "base/FolderHandle.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

#include "base/FileError.h"
#include "base/FileNames.h"

namespace repvolta {

FolderHandle FolderHandle::Open(const std::string& path) {
  // Such a descriptor needs no right to list the folder.
  Descriptor descriptor = OpenDescriptor(path.empty() ? "." : path, O_PATH | O_DIRECTORY);
  return {std::move(descriptor), path.empty() || path.ends_with('/') ? path : path + "/"};
}

Descriptor FolderHandle::OpenEntry(const std::string& name, int flags, unsigned mode) const {
  return Descriptor(Uninterrupted([&] {
    return openat(descriptor_.Number(), name.c_str(), flags | O_NOFOLLOW | O_CLOEXEC, mode);
  }));
}

FolderHandle FolderHandle::OpenFolder(const std::string& name) const {
  Descriptor descriptor = OpenEntry(name, O_RDONLY | O_DIRECTORY);
  // A folder that cannot be listed can still be emptied once it has got its owner's rights.
  if (!descriptor.IsOpen() && errno == EACCES) descriptor = OpenEntry(name, O_PATH | O_DIRECTORY);
  return {std::move(descriptor), path_ + name + "/"};
}

std::optional<struct stat> FolderHandle::StatusOf(const std::string& name) const {
  constexpr int kFlags = AT_SYMLINK_NOFOLLOW | AT_EMPTY_PATH;
  struct stat status{};
  if (fstatat(descriptor_.Number(), name.c_str(), &status, kFlags) == 0) return status;
  for (const int missing : {ENOENT, ENOTDIR, ELOOP, ENAMETOOLONG}) {
    if (errno == missing) return std::nullopt;
  }
  throw FileError(path_ + name, "could not be looked at", errno);
}

int FolderHandle::MakeFolder(const std::string& name) const {
  return mkdirat(descriptor_.Number(), name.c_str(), 0777) == 0 ? 0 : errno;
}

File FolderHandle::CreateFile(const std::string& name) const {
  Descriptor descriptor = OpenEntry(name, O_WRONLY | O_CREAT | O_EXCL, 0666);
  if (!descriptor.IsOpen()) throw FileError(path_ + name, "could not be created", errno);
  return File::TakeOver(std::move(descriptor), path_ + name);
}

File FolderHandle::OpenFile(const std::string& name, File::Access access) const {
  // Without O_NONBLOCK, opening a pipe would wait for its other end.
  const int mode = access == File::Access::kRead ? O_RDONLY : O_RDWR;
  return File::TakeOverUnknown(OpenEntry(name, mode | O_NONBLOCK), path_ + name, access);
}

void FolderHandle::RemoveFile(const std::string& name) const {
  const int result = Uninterrupted([&] { return unlinkat(descriptor_.Number(), name.c_str(), 0); });
  if (result != 0 && errno != ENOENT) {
    throw FileError(path_ + name, "could not be deleted", errno);
  }
}

void FolderHandle::FlushToDevice() const {
  const int error = FlushDescriptor(descriptor_);
  if (error != 0) throw FileError(path_, "could not be written", error);
}

bool FolderHandle::IsAtItsPath() const { return IsStillAt(descriptor_, WithoutSeparator(path_)); }

}  // namespace repvolta
