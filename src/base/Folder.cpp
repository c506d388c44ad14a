#include "base/Folder.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/stat.h>

namespace repvolta {
namespace {

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};
using OpenedFolder = std::unique_ptr<DIR, CloseFolder>;

/// Opens, however often a signal comes in between.
OpenedFolder Open(const std::string& path) {
  while (true) {
    OpenedFolder folder(opendir(path.c_str()));
    if (folder || errno != EINTR) return folder;
  }
}

EntryType TypeOfMode(mode_t mode) {
  if (S_ISREG(mode)) return EntryType::kFile;
  if (S_ISDIR(mode)) return EntryType::kFolder;
  return S_ISLNK(mode) ? EntryType::kLink : EntryType::kOther;
}

/// Most file systems tell the type with the name; the others are asked.
/// Nothing, with the error in errno, when it cannot be known.
std::optional<EntryType> TypeOf(DIR* folder, const dirent& entry) {
  if (entry.d_type != DT_UNKNOWN) return TypeOfMode(static_cast<mode_t>(DTTOIF(entry.d_type)));
  struct stat status {};
  if (fstatat(dirfd(folder), entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0) {
    return TypeOfMode(status.st_mode);
  }
  // What has gone meanwhile is no entry of any type.
  return errno == ENOENT ? std::optional(EntryType::kOther) : std::nullopt;
}

}  // namespace

int ForEachEntry(const std::string& path, const TakeEntry& take) {
  const OpenedFolder folder = Open(path);
  if (!folder) return errno;
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
