#include "update/OutputFolder.h"

#include <cerrno>
#include <stdexcept>

#include "base/DeleteFolder.h"
#include "base/File.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/Text.h"

namespace repvolta {
namespace {

constexpr const char* kNotCreated = "could not be created";

}  // namespace

OutputFolder::OutputFolder(const std::string& outputPath, const std::string& workoutName)
    : name_(TrimTrailingBlanks(workoutName)),
      path_(std::string(TrimBlanks(outputPath + "/" + workoutName)) + "/") {}

void OutputFolder::Clear(const Keepsakes& keep) {
  const std::string folder = Folder();
  use_ = Use::kNothing;
  if (!IsFileName(name_)) Refuse("it does not lie in the output path");
  if (IsLink(folder)) Refuse("it is a link");
  use_ = Use::kAddOnly;
  const bool isThere = FolderExists(folder);
  if (isThere) {
    if (IsMountPoint(folder)) Refuse("another file system is mounted there");
    if (const auto kept = FindKeepsake(folder, keep)) Refuse(*kept + " lies there");
  }
  use_ = Use::kReplace;
  if (isThere) DeleteFolder(folder);
}

void OutputFolder::Refuse(const std::string& why) const {
  throw std::runtime_error(Folder() + " is not deleted: " + why);
}

void OutputFolder::Create() const { MakeFolder(path_); }

bool OutputFolder::MayChange(const std::string& path) const {
  if (use_ != Use::kReplace && !claimed_.contains(path)) return false;
  // A link that could not be deleted may point to a file of the user.
  return !IsLinked(path) && !IsLinked(Folder());
}

void OutputFolder::Claim(const std::string& path) {
  if (use_ == Use::kNothing || IsLinked(Folder())) {
    throw FileError(path, kNotCreated, "It does not lie in the output path");
  }
  const bool isOurs = use_ == Use::kReplace || claimed_.contains(path);
  if (!isOurs && IsTaken(path)) {
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
