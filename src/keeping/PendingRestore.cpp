#include "keeping/PendingRestore.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <sys/stat.h>
#include <utility>

#include "base/DeleteFolder.h"
#include "base/File.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/FileStatus.h"
#include "base/Folder.h"
#include "base/Lines.h"
#include "base/ProgramFiles.h"
#include "base/WholeFile.h"

namespace repvolta {
namespace {

constexpr const char* kFirstLine = "Repvolta restore 1";
constexpr mode_t kPrivateFolder = 0700;
constexpr unsigned kPrivateFile = 0600;

/// True for a path whose parts can all name an entry of a folder.
bool LeadsBelow(const std::string& name) {
  const std::string folder = WithoutSeparator(FolderOf(name));
  return IsFileName(FileName(name)) && (folder.empty() || LeadsBelow(folder));
}

/// The files that the journal lists. Throws FileError for a journal that this program did not
/// write.
std::vector<std::string> ReadJournal(const std::string& path) {
  std::vector<std::string> names;
  bool isOurs = false;
  ForEachLine(path, [&](std::string_view line) {
    if (!isOurs) return isOurs = line == kFirstLine;
    names.emplace_back(line);
    return true;
  });
  if (!isOurs || !std::ranges::all_of(names, LeadsBelow)) {
    throw FileError(path, "could not be read", "Another version of Repvolta has written it");
  }
  return names;
}

/// Finds out before the restore is decided whether the file could be put in place. Throws
/// FileError.
void ExpectPlaceFor(const std::string& directory, const std::string& name) {
  constexpr const char* kFailure = "could not be restored";
  const std::string path = directory + name;
  if (IsTaken(path) && !FileExists(path)) {
    throw FileError(path, kFailure, "Something else has its name");
  }
  std::string folder = FolderOf(name);
  while (!folder.empty() && !IsTaken(WithoutSeparator(directory + folder))) {
    folder = FolderOf(WithoutSeparator(folder));
  }
  const std::string place = directory + folder;
  const int error = ErrorOfWritingTo(place.empty() ? "." : place);
  if (error != 0) throw FileError(path, kFailure, error);
}

/// Where a folder lies on another disk, the file is copied, whole or not at all.
void PutInPlace(const std::string& from, const std::string& to) {
  if (!IsTaken(from)) return;  // it is in place already
  MakeFolders(WithoutSeparator(FolderOf(to)));
  if (std::rename(from.c_str(), to.c_str()) == 0) return;
  if (errno != EXDEV) throw FileError(to, "could not be written", errno);
  const File file = File::Open(from, File::Access::kRead);
  WholeFileWriter writer(to);
  writer.AppendRest(file, 0);
  writer.Commit();
  RemoveFile(from);
}

/// Adds the folders of the file `root` + `name`, from `root` down.
void AddFoldersOf(const std::string& name, const std::string& root,
                  std::set<std::string>& folders) {
  for (std::string folder = FolderOf(name); !folder.empty();
       folder = FolderOf(WithoutSeparator(folder))) {
    folders.insert(root + folder);
  }
  folders.insert(root);
}

void FlushFolders(const std::set<std::string>& folders) {
  for (const std::string& folder : folders) FlushFolder(folder.empty() ? "." : folder);
}

/// Backups of what was there before, amid which a program was killed. Each has a name of its own,
/// which no later backup takes.
void RemoveUnfinishedBackups(const std::string& directory) {
  const std::string folder = directory + kBackupFolder;
  const std::string begin = std::string(".") + kBackupBeforeRestore;
  try {
    std::vector<std::string> names;
    ForEachEntry(folder, [&](std::string_view name, EntryType type) {
      if (type == EntryType::kFile && name.starts_with(begin)) names.emplace_back(name);
    });
    for (const std::string& name : names) RemoveFile(folder + name);
  } catch (const FileError&) {
    // They only take room.
  }
}

/// The journal goes first: without it the folder means nothing.
void Remove(const std::string& directory) {
  RemoveFile(directory + kRestoreJournal);
  DeleteFolder(WithoutSeparator(directory + kRestoreFolder));
}

}  // namespace

RestoreStage::RestoreStage(std::string programDirectory) : directory_(std::move(programDirectory)) {
  const std::string folder = directory_ + kRestoreFolder;
  if (IsRestorePending(directory_)) {
    throw FileError(folder, "is in the way", "An earlier restore is not finished");
  }
  DeleteFolder(WithoutSeparator(folder));
  if (mkdir(folder.c_str(), kPrivateFolder) != 0) {
    throw FileError(folder, "could not be created", errno);
  }
  MakeFolder(directory_ + kRestoredFiles);
  folders_ = {folder, directory_ + kRestoredFiles};
}

RestoreStage::~RestoreStage() {
  if (isCommitted_) return;
  try {
    Remove(directory_);
  } catch (const FileError&) {
    // The next start removes it.
  }
}

void RestoreStage::Add(const std::string& name, std::span<const Byte> content) {
  if (!LeadsBelow(name)) {
    throw FileError(name, "could not be restored", "It does not lie in the program directory");
  }
  ExpectPlaceFor(directory_, name);
  const std::string path = directory_ + kRestoredFiles + name;
  MakeFolders(WithoutSeparator(FolderOf(path)));
  File file = File::CreateNew(path, kPrivateFile);
  file.WriteAt(0, content);
  TakePermissions(file, directory_ + name);
  file.FlushToDevice();
  file.CloseWritten();
  names_.push_back(name);
  AddFoldersOf(name, directory_ + kRestoredFiles, folders_);
}

void RestoreStage::Commit() {
  FlushFolders(folders_);
  FlushFolders({directory_});
  std::string journal = std::string(kFirstLine) + "\n";
  for (const std::string& name : names_) journal += name + "\n";
  WriteWholeFile(directory_ + kRestoreJournal, AsBytes(journal));
  isCommitted_ = true;
}

bool IsRestorePending(const std::string& programDirectory) {
  return IsTaken(programDirectory + kRestoreJournal);
}

void FinishRestore(const std::string& programDirectory) {
  if (IsRestorePending(programDirectory)) {
    const std::string files = programDirectory + kRestoredFiles;
    std::set<std::string> folders;
    for (const std::string& name : ReadJournal(programDirectory + kRestoreJournal)) {
      PutInPlace(files + name, programDirectory + name);
      AddFoldersOf(name, programDirectory, folders);
    }
    FlushFolders(folders);
  }
  RemoveUnfinishedBackups(programDirectory);
  try {
    Remove(programDirectory);
  } catch (const FileError&) {
    // Nothing in it is needed any more; the next start removes it.
  }
}

}  // namespace repvolta
