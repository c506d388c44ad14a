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
constexpr std::size_t kPendingLimit = std::size_t{256} * 1024;

/// The permissions that the file at `path` has, or that a new one would get. Throws FileError: what
/// is private must not be opened to others because a disk fails.
mode_t PermissionsFor(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) == 0) return status.st_mode & 07777;
  if (errno != ENOENT && errno != ELOOP) throw FileError(path, kFailure, errno);
  const mode_t mask = umask(0);
  umask(mask);
  return 0666 & ~mask;
}

}  // namespace

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

/// Runs the statement; a failure then names the file that is to be written, not the working file.
template <class Statement>
void WholeFileWriter::Writing(Statement statement) {
  try {
    statement();
  } catch (const FileError& error) {
    throw FileError(path_, kFailure, error.Reason());
  }
}

void WholeFileWriter::Append(std::span<const Byte> bytes) {
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

void WholeFileWriter::Commit() {
  WriteOut();
  FlushWorkingFile();
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
    if (fchmod(file_.OpenAs().Number(), PermissionsFor(path_)) != 0) {
      throw FileError(path_, kFailure, errno);
    }
    file_.FlushToDevice();
  });
}

void WriteWholeFile(const std::string& path, std::span<const Byte> bytes) {
  WholeFileWriter writer(path);
  writer.Append(bytes);
  writer.Commit();
}

}  // namespace repvolta
