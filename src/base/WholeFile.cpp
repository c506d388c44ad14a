#include "base/WholeFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <random>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/FileError.h"
#include "base/FileNames.h"

namespace repvolta {
namespace {

constexpr std::size_t kPendingLimit = std::size_t{256} * 1024;
constexpr unsigned kPrivate = 0600;

File CreateBeside(const std::string& path) {
  std::random_device random;
  while (true) {
    const std::string name = FolderOf(path) + ".repvolta-" + std::to_string(random());
    try {
      return File::CreateNew(name, kPrivate);
    } catch (const FileError& error) {
      if (error.Error() != EEXIST) throw FileError(path, "could not be written", error.Reason());
    }
  }
}

/// The permissions that the file at `path` has, or that a new one would get.
mode_t PermissionsFor(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) == 0) return status.st_mode & 07777;
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
    : path_(std::move(path)), file_(CreateBeside(path_)) {}

WholeFileWriter::~WholeFileWriter() {
  if (!committed_) unlink(file_.Path().c_str());
}

void WholeFileWriter::Append(std::span<const Byte> bytes) {
  pending_.insert(pending_.end(), bytes.begin(), bytes.end());
  if (pending_.size() >= kPendingLimit) WriteOut();
}

void WholeFileWriter::WriteOut() {
  try {
    file_.WriteAt(written_, pending_);
  } catch (const FileError& error) {
    throw FileError(path_, "could not be written", error.Reason());
  }
  written_ += pending_.size();
  pending_.clear();
}

void WholeFileWriter::Commit() {
  WriteOut();
  if (fchmod(file_.Descriptor(), PermissionsFor(path_)) != 0 || fsync(file_.Descriptor()) != 0 ||
      std::rename(file_.Path().c_str(), path_.c_str()) != 0) {
    throw FileError(path_, "could not be written", errno);
  }
  committed_ = true;
  FlushFolder(FolderOf(path_).empty() ? "." : FolderOf(path_));
}

void WriteWholeFile(const std::string& path, std::span<const Byte> bytes) {
  WholeFileWriter writer(path);
  writer.Append(bytes);
  writer.Commit();
}

}  // namespace repvolta
