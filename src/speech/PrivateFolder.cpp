#include "speech/PrivateFolder.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

#include "base/DeleteFolder.h"
#include "base/FileError.h"
#include "base/Folder.h"
#include "base/Lock.h"
#include "base/WorkingFile.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPrefix = "repvolta-speech-";
constexpr std::string_view kUniquePart = "XXXXXX";
constexpr const char* kFailure = "could not be created";
constexpr int kAttempts = 10;

/// espeak-ng cuts off file names at 199 bytes.
constexpr std::size_t kLongestPlace = 150;

/// The user's folder for temporary files, or the system's if that one cannot be used.
std::string TemporaryPlace() {
  std::error_code error;
  const fs::path place = fs::temp_directory_path(error);
  return error || place.string().size() > kLongestPlace ? P_tmpdir : place.string();
}

/// Not open when there is no such folder, or only a link.
Descriptor OpenFolder(const std::string& path) {
  return OpenDescriptor(path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
}

void Delete(const std::string& folder) {
  // The second attempt is for entries that could not be deleted at first.
  for (int attempt = 0; attempt < 2; ++attempt) {
    try {
      return DeleteFolder(folder);
    } catch (const FileError&) {
    }
  }
}

/// True for the names that mkdtemp makes.
bool IsOurName(std::string_view name) {
  if (!name.starts_with(kPrefix)) return false;
  name.remove_prefix(kPrefix.size());
  return name.size() == kUniquePart.size() && std::ranges::all_of(name, [](char character) {
           return ('0' <= character && character <= '9') ||
                  ('A' <= character && character <= 'Z') || ('a' <= character && character <= 'z');
         });
}

bool IsOurFile(std::string_view name) {
  for (const char* file : {kSpokenTextFile, kSpokenSoundFile, kSongFile, kSongSamplesFile}) {
    if (name == file || name == WorkingName(file)) return true;
  }
  return false;
}

/// True when the folder has our owner and permissions, and holds only files that we put there.
bool IsOurs(const Descriptor& descriptor, const std::string& folder) {
  struct stat status{};
  if (fstat(descriptor.Number(), &status) != 0 || status.st_uid != geteuid()) return false;
  if ((status.st_mode & 0777) != S_IRWXU) return false;
  bool isOurs = true;
  const int error = ForEachEntry(folder, [&](std::string_view name, EntryType type) {
    isOurs = isOurs && type == EntryType::kFile && IsOurFile(name);
  });
  return isOurs && error == 0;
}

/// The process that made a folder holds its lock until it ends.
void DeleteIfAbandoned(const std::string& folder) {
  const Descriptor descriptor = OpenFolder(folder);
  if (!descriptor.IsOpen() || TryLock(descriptor) != 0) return;
  if (IsOurs(descriptor, folder)) Delete(folder);
}

void DeleteAbandoned(const std::string& place) {
  std::vector<std::string> folders;
  ForEachEntry(place, [&](std::string_view name, EntryType type) {
    if (type == EntryType::kFolder && IsOurName(name)) {
      folders.push_back(std::string(place).append("/").append(name));
    }
  });
  for (const std::string& folder : folders) DeleteIfAbandoned(folder);
}

}  // namespace

PrivateFolder::PrivateFolder() {
  const std::string place = TemporaryPlace();
  DeleteAbandoned(place);
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    if (Make(place)) return;
  }
  throw FileError(place, kFailure, "Another program takes the folders in it away");
}

PrivateFolder::~PrivateFolder() { Delete(path_); }

/// False when another process saw the folder before it was locked and took it for abandoned.
bool PrivateFolder::Make(const std::string& place) {
  std::string pattern = std::string(place).append("/").append(kPrefix).append(kUniquePart);
  if (mkdtemp(pattern.data()) == nullptr) throw FileError(pattern, kFailure, errno);
  path_ = pattern + "/";
  descriptor_ = OpenFolder(pattern);
  const int error = descriptor_.IsOpen() ? TryLock(descriptor_) : errno;
  // On a file system without locks, every lock counts as granted.
  if (error != EWOULDBLOCK && IsStillAt(descriptor_, pattern)) return true;
  Delete(pattern);
  if (!descriptor_.IsOpen() && error != ENOENT) throw FileError(pattern, kFailure, error);
  descriptor_.Close();
  return false;
}

}  // namespace repvolta
