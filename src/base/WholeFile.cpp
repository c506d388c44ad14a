#include "base/WholeFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/WorkingFile.h"

namespace repvolta {
namespace {

constexpr const char* kFailure = "could not be written";
constexpr auto kSameUser = static_cast<uid_t>(-1);
constexpr std::size_t kPendingLimit = std::size_t{256} * 1024;

/// The permissions that are left when the file's group changes: group and others both get only what
/// both had, so that nobody gains a right.
mode_t PermissionsInOtherGroup(mode_t mode) {
  const mode_t shared = (mode >> 3U) & mode & 07U;
  return (mode & 0700U) | (shared << 3U) | shared;
}

/// Gives the open file the group of the file at `path` and returns the permissions to set: those of
/// that file, or those of a new one. Throws FileError, because a private file must not become
/// readable to others when a disk fails.
mode_t TakeGroup(const File& file, const std::string& path) {
  struct stat before{};
  if (stat(path.c_str(), &before) == 0) {
    const mode_t mode = before.st_mode & 07777;
    struct stat now{};
    const int own = file.OpenAs().Number();
    const bool hasGroup = fstat(own, &now) == 0 && now.st_gid == before.st_gid;
    const bool keepsGroup = hasGroup || fchown(own, kSameUser, before.st_gid) == 0;
    return keepsGroup ? mode : PermissionsInOtherGroup(mode);
  }
  if (errno != ENOENT && errno != ELOOP) throw FileError(path, kFailure, errno);
  const mode_t mask = umask(0);
  umask(mask);
  return 0666 & ~mask;
}

/// Sets the permissions of the new file. A disk without permissions may refuse, which does not
/// matter as long as nobody can read the file who was not to. Throws FileError.
void SetPermissions(const File& file, mode_t mode, const std::string& path) {
  constexpr mode_t kReadable = 0444;
  const int own = file.OpenAs().Number();
  if (fchmod(own, mode) == 0) return;
  const int error = errno;
  struct stat now{};
  const bool isUnable = error == EPERM || error == ENOSYS || error == ENOTSUP;
  if (isUnable && fstat(own, &now) == 0 && (now.st_mode & kReadable & ~mode) == 0) return;
  throw FileError(path, kFailure, error);
}

}  // namespace

void TakePermissions(const File& file, const std::string& path) {
  // The group is set first: until then only the owner may read the file.
  SetPermissions(file, TakeGroup(file, path), path);
}

Bytes ReadWholeFile(const std::string& path, std::size_t limit) {
  const File file = File::Open(path, File::Access::kRead);
  Bytes content(static_cast<std::size_t>(std::min<std::uint64_t>(file.Size(), limit)));
  content.resize(file.ReadAt(0, content));
  return content;
}

WholeFileWriter::WholeFileWriter(std::string path)
    : path_(std::move(path)), file_(CreateWorkingFile(path_)) {}

WholeFileWriter::~WholeFileWriter() {
  if (!committed_) unlink(file_.Path().c_str());
}

/// Runs the statement and makes a FileError name the target instead of the working file.
template <class Statement>
void WholeFileWriter::Writing(Statement statement) {
  try {
    statement();
  } catch (const FileError& error) {
    throw FileError(path_, kFailure, error.Reason());
  }
}

void WholeFileWriter::Append(std::span<const Byte> bytes) {
  if (pending_.empty() && bytes.size() >= kPendingLimit) {
    // As it is, without a copy of all.
    Writing([&] { file_.WriteAt(written_, bytes); });
    written_ += bytes.size();
    return;
  }
  pending_.insert(pending_.end(), bytes.begin(), bytes.end());
  if (pending_.size() >= kPendingLimit) WriteOut();
}

void WholeFileWriter::AppendRest(const File& from, std::uint64_t offset) {
  WriteOut();
  Writing([&] { written_ = CopyContent(from, offset, file_, written_); });
}

void WholeFileWriter::WriteOut() {
  Writing([&] { file_.WriteAt(written_, pending_); });
  written_ += pending_.size();
  pending_.clear();
}

void WholeFileWriter::Commit(const std::function<void()>& lastCheck) {
  WriteOut();
  FlushWorkingFile();
  if (lastCheck) lastCheck();
  if (std::rename(file_.Path().c_str(), path_.c_str()) != 0) {
    throw FileError(path_, kFailure, errno);
  }
  committed_ = true;
  FlushFolder(FolderOf(path_).empty() ? "." : FolderOf(path_));
}

std::optional<FileStamp> WholeFileWriter::Placed() const {
  if (!committed_) return std::nullopt;
  return file_.Stamp();
}

void WholeFileWriter::FlushWorkingFile() {
  Writing([&] {
    TakePermissions(file_, path_);
    file_.FlushToDevice();
    file_.ConfirmWritten();
  });
}

void WriteWholeFile(const std::string& path, std::span<const Byte> bytes) {
  WholeFileWriter writer(path);
  writer.Append(bytes);
  writer.Commit();
}

}  // namespace repvolta
