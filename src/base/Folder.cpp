#include "base/Folder.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/stat.h>
#include <utility>

#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/FileStatus.h"

namespace repvolta {
namespace {

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};
using OpenedFolder = std::unique_ptr<DIR, CloseFolder>;

EntryType TypeOfMode(mode_t mode) {
  if (S_ISREG(mode)) return EntryType::kFile;
  if (S_ISDIR(mode)) return EntryType::kFolder;
  return S_ISLNK(mode) ? EntryType::kLink : EntryType::kOther;
}

/// Most file systems give the type with the name; for the others the entry's status is read.
/// Nothing, with the error in errno, when that fails.
std::optional<EntryType> TypeOf(DIR* folder, const dirent& entry) {
  if (entry.d_type != DT_UNKNOWN) return TypeOfMode(static_cast<mode_t>(DTTOIF(entry.d_type)));
  struct stat status{};
  if (fstatat(dirfd(folder), entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0) {
    return TypeOfMode(status.st_mode);
  }
  // The entry was removed after it was listed.
  return errno == ENOENT ? std::optional(EntryType::kOther) : std::nullopt;
}

}  // namespace

bool FolderExists(const std::string& path) {
  const auto status = StatusOf(path, Links::kFollowed);
  return status && S_ISDIR(status->st_mode);
}

bool IsTaken(const std::string& path) { return StatusOf(path, Links::kSeen).has_value(); }

void MakeFolder(const std::string& path) {
  if (mkdir(path.c_str(), 0777) == 0) return;
  const int error = errno;
  if (!FolderExists(path)) throw FileError(path, "could not be created", error);
}

void MakeFolders(const std::string& path) {
  if (path.empty() || FolderExists(path)) return;
  const std::string name = WithoutSeparator(path);
  MakeFolders(FolderOf(name));
  MakeFolder(name);
}

int ForEachEntry(const std::string& path, const TakeEntry& take) {
  Descriptor folder = OpenDescriptor(path, O_RDONLY | O_DIRECTORY);
  return folder.IsOpen() ? ForEachEntry(std::move(folder), take) : errno;
}

int ForEachEntry(const FolderHandle& place, const std::string& name, const TakeEntry& take) {
  constexpr int kFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
  Descriptor folder(
      Uninterrupted([&] { return openat(place.OpenAs().Number(), name.c_str(), kFlags); }));
  return folder.IsOpen() ? ForEachEntry(std::move(folder), take) : errno;
}

int ForEachEntry(Descriptor descriptor, const TakeEntry& take) {
  const OpenedFolder folder(fdopendir(descriptor.Number()));
  if (!folder) return errno;
  // closedir() closes the descriptor.
  descriptor.Release();
  while (true) {
    errno = 0;
    const dirent* entry = readdir(folder.get());
    if (entry == nullptr) return errno;
    const std::string_view name = entry->d_name;
    if (name == "." || name == "..") continue;
    const std::optional<EntryType> type = TypeOf(folder.get(), *entry);
    if (!type) return errno;
    take(name, *type);
  }
}

}  // namespace repvolta
