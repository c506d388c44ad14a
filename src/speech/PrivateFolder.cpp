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

/// espeak-ng cuts off the names of its files at 199 bytes.
constexpr std::size_t kLongestPlace = 150;

/// The folder for temporary files, or the system's own when that one cannot be used.
std::string TemporaryPlace() {
  std::error_code error;
  const fs::path place = fs::temp_directory_path(error);
  return error || place.string().size() > kLongestPlace ? P_tmpdir : place.string();
}

/// Of nothing where there is no such folder, or only a link.
Descriptor OpenFolder(const std::string& path) {
  return OpenDescriptor(path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
}

void Delete(const std::string& folder) {
  // A second time for what could not be deleted at first.
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
  for (const char* file : {kSpokenTextFile, kSpokenSoundFile}) {
    if (name == file || name == WorkingName(file)) return true;
  }
  return false;
}

/// True when the folder is as we make it, and nothing is in it but what we put there.
bool IsOurs(const Descriptor& descriptor, const std::string& folder) {
  struct stat status {};
  if (fstat(descriptor.Number(), &status) != 0 || status.st_uid != geteuid()) return false;
  if ((status.st_mode & 0777) != S_IRWXU) return false;
  bool isOurs = true;
  const int error = ForEachEntry(folder, [&](std::string_view name, EntryType type) {
    isOurs = isOurs && type == EntryType::kFile && IsOurFile(name);
  });
  return isOurs && error == 0;
}

/// Who made a folder holds its lock, as long as the process lives.
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

/// False when another process took the folder for an abandoned one before it was locked.
bool PrivateFolder::Make(const std::string& place) {
  std::string pattern = std::string(place).append("/").append(kPrefix).append(kUniquePart);
  if (mkdtemp(pattern.data()) == nullptr) throw FileError(pattern, kFailure, errno);
  path_ = pattern + "/";
  descriptor_ = OpenFolder(pattern);
  const int error = descriptor_.IsOpen() ? TryLock(descriptor_) : errno;
  // A file system without locks grants every one.
  if (error != EWOULDBLOCK && IsStillAt(descriptor_, pattern)) return true;
  Delete(pattern);
  if (!descriptor_.IsOpen() && error != ENOENT) throw FileError(pattern, kFailure, error);
  descriptor_.Close();
  return false;
}

}  // namespace repvolta
