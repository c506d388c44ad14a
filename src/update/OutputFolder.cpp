#include "update/OutputFolder.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <stdexcept>
#include <sys/stat.h>

#include "base/File.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Text.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

constexpr const char* kNotCreated = "could not be created";

/// The path without links, "." and "..", as far as it exists.
fs::path Resolved(const std::string& path) {
  std::error_code error;
  const fs::path resolved = fs::weakly_canonical(path, error);
  return (error ? fs::absolute(path) : resolved) / "";
}

bool IsOrHolds(const fs::path& folder, const fs::path& path) {
  return std::mismatch(folder.begin(), --folder.end(), path.begin(), path.end()).first ==
         --folder.end();
}

/// Entries of a read-only folder can only be deleted when it becomes writable.
void MakeFoldersWritable(const fs::path& root) {
  std::error_code error;
  const auto allow = [&](const fs::path& folder) {
    fs::permissions(folder, fs::perms::owner_all, fs::perm_options::add, error);
  };
  allow(root);
  for (fs::recursive_directory_iterator entry(root, error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code unknown;
    if (entry->is_directory(unknown) && !entry->is_symlink(unknown)) allow(entry->path());
  }
}

}  // namespace

OutputFolder::OutputFolder(const std::string& outputPath, const std::string& workoutName)
    : name_(TrimTrailingBlanks(workoutName)),
      path_(std::string(TrimBlanks(outputPath + "/" + workoutName)) + "/") {}

void OutputFolder::Clear(const std::vector<std::string>& keep) {
  const std::string folder = Folder();
  use_ = Use::kNothing;
  if (!IsFileName(name_)) {
    throw std::runtime_error(folder + " is not deleted: it does not lie in the output path");
  }
  if (fs::is_symlink(folder)) throw std::runtime_error(folder + " is not deleted: it is a link");
  use_ = Use::kAddOnly;
  for (const std::string& path : keep) {
    if (!path.empty() && IsOrHolds(Resolved(folder), Resolved(path))) {
      throw std::runtime_error(
          std::string(folder).append(" is not deleted: ").append(path).append(" lies there"));
    }
  }
  use_ = Use::kReplace;
  if (!fs::is_directory(folder)) return;
  MakeFoldersWritable(folder);
  std::error_code error;
  do {
    fs::remove_all(folder, error);
  } while (error == std::errc::interrupted);
  if (error) throw FileError(folder, "could not be deleted", error.value());
}

void OutputFolder::Create() const {
  if (mkdir(path_.c_str(), 0777) == 0) return;
  const int error = errno;
  if (!fs::is_directory(path_)) throw FileError(path_, kNotCreated, error);
}

bool OutputFolder::MayChange(const std::string& path) const {
  if (use_ != Use::kReplace && !claimed_.contains(path)) return false;
  // What could not be cleared away may be a link to a file of the user.
  return !IsLinked(path) && !IsLinked(Folder());
}

void OutputFolder::Claim(const std::string& path) {
  if (use_ == Use::kNothing || IsLinked(Folder())) {
    throw FileError(path, kNotCreated, "It does not lie in the output path");
  }
  const bool isOurs = use_ == Use::kReplace || claimed_.contains(path);
  if (!isOurs && fs::exists(fs::symlink_status(path))) {
    throw FileError(path, kNotCreated, EEXIST);
  }
  claimed_.insert(path);
}

void OutputFolder::CopyInto(const std::string& source, const std::string& target,
                            const CopyStart& start) {
  Claim(target);
  CopyFileOver(source, target, start);
}

void OutputFolder::StartFlush(const std::string& path) {
  File::Open(path, File::Access::kRead).StartFlush();
}

void OutputFolder::FlushToDevice() const {
  if (use_ == Use::kNothing) return;
  for (const std::string& path : claimed_) {
    if (FileExists(path)) File::Open(path, File::Access::kRead).FlushToDevice();
  }
  FlushFolder(path_);
}

}  // namespace repvolta
