#include "player/OutputFolder.h"

#include <cerrno>
#include <linux/magic.h>
#include <sys/vfs.h>

#include "base/FileError.h"
#include "base/FileNames.h"
#include "player/KeptName.h"
#include "player/PlayerNames.h"

namespace repvolta {
namespace {

constexpr const char* kNotCreated = "could not be created";
constexpr const char* kNotRead = "could not be read";

/// True when the file system is a program, as those of phones are.
bool IsOnProgram(const FolderHandle& folder) {
  struct statfs status{};
  return fstatfs(folder.OpenAs().Number(), &status) == 0 && status.f_type == FUSE_SUPER_MAGIC;
}

/// The part of a new file's path behind its last separator.
std::string NameOf(const File& file) { return FileName(file.Path()); }

}  // namespace

void OutputFolder::Create() {
  place_.Create();
  // Where this fails, the first file to be written says so.
  if (place_.WhatFor() != Use::kNothing) Open();
}

/// False, with the error in errno, when the folder cannot be opened.
bool OutputFolder::Open() {
  if (folder_.IsOpen()) return true;
  folder_ = place_.Open();
  if (!folder_.IsOpen()) return false;
  isProgram_ = IsOnProgram(folder_);
  return true;
}

/// The folder, for work on its entry `name`. Throws FileError that gives `failure` as what failed.
const FolderHandle& OutputFolder::Opened(const std::string& name, const char* failure) {
  if (!Open()) throw FileError(Path() + name, failure, errno);
  return folder_;
}

void OutputFolder::CheckUse(const std::string& name) const {
  if (place_.WhatFor() == Use::kNothing) {
    throw FileError(Path() + name, kNotCreated, "It does not lie in the output path");
  }
}

/// A new file. One of this name is replaced where that is allowed.
File OutputFolder::CreateOrReplace(const std::string& name) {
  const FolderHandle& folder = Opened(name, kNotCreated);
  try {
    return folder.CreateFile(name);
  } catch (const FileError& error) {
    const bool mayReplace = place_.WhatFor() == Use::kReplace || written_.contains(name);
    if (error.Error() != EEXIST || !mayReplace) throw;
  }
  folder.RemoveFile(name);
  return folder.CreateFile(name);
}

/// The same; a disk that takes another name for it than this refuses it.
File OutputFolder::CreateNamed(const std::string& name) {
  {
    File file = CreateOrReplace(name);
    if (IsKeptAs(folder_, name)) return file;
  }
  folder_.RemoveFile(name);
  throw FileError(Path() + name, kNotCreated, EINVAL);
}

/// A new file, under the nearest name that the disk takes.
File OutputFolder::CreateFile(const std::string& name) {
  try {
    return CreateNamed(name);
  } catch (const FileError& refusal) {
    if (!MayRefuseName(refusal.Error())) throw;
    const std::vector<std::string> names = PlayerNames(name);
    for (std::size_t i = 1; i < names.size(); ++i) {
      try {
        return CreateNamed(names[i]);
      } catch (const FileError& next) {
        if (!MayRefuseName(next.Error())) throw;
      }
    }
    throw;
  }
}

/// Lets `write` fill a new file and returns the file's name.
template <class Write>
std::string OutputFolder::WriteNew(const std::string& name, Write write) {
  File file = CreateFile(name);
  std::string kept = NameOf(file);
  try {
    write(file);
    Finish(kept, file);
  } catch (...) {
    try {
      folder_.RemoveFile(kept);
    } catch (const FileError&) {
      // What is reported is why the file could not be written.
    }
    throw;
  }
  return kept;
}

void OutputFolder::Finish(const std::string& name, File& file) {
  if (isProgram_) {
    // To flush it later would mean to open it again, for which some programs fetch the whole file
    // from the player.
    file.FlushToDevice();
  } else {
    // So that a slow player works while the next instruction is encoded.
    file.StartFlush();
  }
  file.CloseWritten();
  written_.insert(name);
}

std::string OutputFolder::CopyInto(const std::string& source, const std::string& name,
                                   const CopyStart& start) {
  CheckUse(name);
  const File from = File::Open(source, File::Access::kRead);
  return WriteNew(name, [&](File& file) { WriteCopy(from, start, file); });
}

std::string OutputFolder::WriteInto(const std::string& name, std::string_view text) {
  CheckUse(name);
  return WriteNew(name, [&](File& file) { file.WriteAt(0, AsBytes(text)); });
}

File OutputFolder::OpenFile(const std::string& name, File::Access access) {
  return Opened(name, kNotRead).OpenFile(name, access);
}

std::optional<struct stat> OutputFolder::StatusOf(const std::string& name) {
  return Opened(name, kNotRead).StatusOf(name);
}

void OutputFolder::FlushToDevice() {
  if (place_.WhatFor() == Use::kNothing) return;
  const FolderHandle& folder = Opened("", kNotRead);
  for (const std::string& name : written_) {
    const auto status = isProgram_ ? std::nullopt : folder.StatusOf(name);
    if (!status || !S_ISREG(status->st_mode)) continue;
    folder.OpenFile(name, File::Access::kRead).FlushToDevice();
  }
  folder.FlushToDevice();
  if (!folder.IsAtItsPath()) {
    throw FileError(WithoutSeparator(Path()), "could not be written", "It is no longer there");
  }
}

}  // namespace repvolta
