#include "base/DeleteFolder.h"

#include <exception>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Folder.h"

namespace repvolta {
namespace {

constexpr const char* kFailure = "could not be deleted";
constexpr unsigned kOwnersRights = 0700;

/// An entry of an opened folder, or the folder itself when the name is empty.
struct Entry {
  const Descriptor& folder;
  std::string name;
  std::string path;
};

struct statx LookAt(const Entry& entry) {
  constexpr int kFlags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT | AT_EMPTY_PATH;
  constexpr unsigned kWanted = STATX_TYPE | STATX_MODE | STATX_MNT_ID;
  struct statx status{};
  const int result = Uninterrupted(
      [&] { return statx(entry.folder.Number(), entry.name.c_str(), kFlags, kWanted, &status); });
  if (result != 0) throw FileError(entry.path, kFailure, errno);
  return status;
}

/// A file system that is mounted twice has one device number, so mount numbers are compared where
/// the kernel gives them.
bool IsInOneMount(const struct statx& a, const struct statx& b) {
  if ((a.stx_mask & b.stx_mask & STATX_MNT_ID) != 0) return a.stx_mnt_id == b.stx_mnt_id;
  return a.stx_dev_major == b.stx_dev_major && a.stx_dev_minor == b.stx_dev_minor;
}

void Unlink(const Entry& entry, int flags) {
  const int result =
      Uninterrupted([&] { return unlinkat(entry.folder.Number(), entry.name.c_str(), flags); });
  if (result != 0 && errno != ENOENT) throw FileError(entry.path, kFailure, errno);
}

/// Deletes folders within one mounted file system. Every entry is addressed through its opened
/// parent folder, so that nobody can redirect the deletion by putting a link in the path.
class Deletion {
 public:
  explicit Deletion(const struct statx& place) : place_(place) {}

  void Delete(const Entry& entry, EntryType type) {
    Try([&] {
      if (type == EntryType::kFolder) {
        DeleteFolder(entry);
      } else {
        Unlink(entry, 0);
      }
    });
  }

  /// Deletes a folder that is already open.
  void DeleteOpened(const Entry& folder, const Descriptor& opened) {
    Try([&] {
      AllowDeletion(folder, LookAt({opened, "", folder.path}));
      Empty(folder, opened);
      Unlink(folder, AT_REMOVEDIR);
    });
  }

  /// Throws the first failure.
  void ThrowFailure() const {
    if (failure_) std::rethrow_exception(failure_);
  }

 private:
  template <class Statement>
  void Try(Statement statement) {
    try {
      statement();
    } catch (const FileError&) {
      if (!failure_) failure_ = std::current_exception();
    }
  }

  void DeleteFolder(const Entry& folder) {
    Empty(folder, Open(folder));
    Unlink(folder, AT_REMOVEDIR);
  }

  Descriptor Open(const Entry& folder) const {
    AllowDeletion(folder, LookAt(folder));
    return OpenIn(folder.folder, folder.name, folder.path);
  }

  void AllowDeletion(const Entry& folder, const struct statx& status) const {
    if (!S_ISDIR(status.stx_mode)) throw FileError(folder.path, kFailure, ENOTDIR);
    if (!IsInOneMount(status, place_)) {
      throw FileError(folder.path, kFailure, "Another file system is mounted there");
    }
    if ((status.stx_mode & kOwnersRights) != kOwnersRights) {
      // If this fails, the deletion below fails too and gives the reason.
      [[maybe_unused]] const int unneeded =
          fchmodat(folder.folder.Number(), folder.name.c_str(),
                   (status.stx_mode & 07777U) | kOwnersRights, AT_SYMLINK_NOFOLLOW);
    }
  }

  static Descriptor OpenIn(const Descriptor& place, const std::string& name,
                           const std::string& path) {
    constexpr int kFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
    Descriptor opened(Uninterrupted([&] { return openat(place.Number(), name.c_str(), kFlags); }));
    if (!opened.IsOpen()) throw FileError(path, kFailure, errno);
    return opened;
  }

  void Empty(const Entry& folder, const Descriptor& opened) {
    struct Found {
      std::string name;
      EntryType type;
    };
    // The folder is read to its end first: some file systems skip entries when others are deleted
    // during the reading.
    std::vector<Found> all;
    const int error = ForEachEntry(
        OpenIn(opened, ".", folder.path),
        [&](std::string_view name, EntryType type) { all.push_back({std::string(name), type}); });
    for (const auto& [name, type] : all) {
      Delete({opened, name, std::string(folder.path).append("/").append(name)}, type);
    }
    if (error != 0) throw FileError(folder.path, kFailure, error);
  }

  struct statx place_;
  std::exception_ptr failure_;
};

/// Opens the parent of the folder.
Descriptor OpenPlaceOf(const std::string& folder) {
  const std::string place = FolderOf(folder).empty() ? "." : FolderOf(folder);
  Descriptor opened = OpenDescriptor(place, O_PATH | O_DIRECTORY);
  if (!opened.IsOpen()) throw FileError(folder, kFailure, errno);
  return opened;
}

}  // namespace

bool IsMountPoint(const FolderHandle& place, const std::string& name) {
  const std::string path = place.Path() + name;
  return !IsInOneMount(LookAt({place.OpenAs(), name, path}), LookAt({place.OpenAs(), "", path}));
}

bool IsMountPoint(const FolderHandle& place, const FolderHandle& folder) {
  const std::string path = WithoutSeparator(folder.Path());
  return !IsInOneMount(LookAt({folder.OpenAs(), "", path}), LookAt({place.OpenAs(), "", path}));
}

void DeleteFolder(const FolderHandle& place, const FolderHandle& folder) {
  const std::string path = WithoutSeparator(folder.Path());
  Deletion deletion(LookAt({place.OpenAs(), "", path}));
  deletion.DeleteOpened({place.OpenAs(), FileName(path), path}, folder.OpenAs());
  deletion.ThrowFailure();
}

void DeleteFolder(const std::string& path) {
  if (!IsTaken(path)) return;
  const std::string folder = WithoutSeparator(path);
  const Descriptor opened = OpenPlaceOf(folder);
  Deletion deletion(LookAt({opened, "", folder}));
  deletion.Delete({opened, FileName(folder), folder}, EntryType::kFolder);
  deletion.ThrowFailure();
}

}  // namespace repvolta
