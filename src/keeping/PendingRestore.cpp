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

constexpr std::string_view kFirstLine = "Repvolta restore 1";

/// The first line of a journal that also has files to be removed, each below "- ". The other one is
/// still written where it is enough: an older program can finish that.
constexpr std::string_view kFirstLineOfRemoval = "Repvolta restore 2";
constexpr std::string_view kRemoved = "- ";
constexpr std::string_view kPlaced = "+ ";
constexpr mode_t kPrivateFolder = 0700;
constexpr unsigned kPrivateFile = 0600;

/// True for a path whose parts can all name an entry of a folder.
bool LeadsBelow(const std::string& name) {
  const std::string folder = WithoutSeparator(FolderOf(name));
  return IsFileName(FileName(name)) && (folder.empty() || LeadsBelow(folder));
}

struct Journal {
  std::vector<std::string> names;
  std::vector<std::string> removed;
};

/// False for a line that no journal with removals has.
bool AddTo(Journal& journal, std::string_view line) {
  const std::string_view kind = line.substr(0, kPlaced.size());
  if (kind != kPlaced && kind != kRemoved) return false;
  (kind == kPlaced ? journal.names : journal.removed).emplace_back(line.substr(kind.size()));
  return true;
}

/// Throws FileError for a journal that this program did not write.
Journal ReadJournal(const std::string& path) {
  Journal journal;
  std::string first;
  bool isOurs = false;
  ForEachLine(path, [&](std::string_view line) {
    if (first.empty()) {
      first = line;
      return isOurs = line == kFirstLine || line == kFirstLineOfRemoval;
    }
    if (first == kFirstLineOfRemoval) return isOurs = AddTo(journal, line);
    journal.names.emplace_back(line);
    return true;
  });
  if (!isOurs || !std::ranges::all_of(journal.names, LeadsBelow) ||
      !std::ranges::all_of(journal.removed, LeadsBelow)) {
    throw FileError(path, "could not be read", "Another version of Repvolta has written it");
  }
  return journal;
}

std::string TextOf(const Journal& journal) {
  const bool removes = !journal.removed.empty();
  std::string text = std::string(removes ? kFirstLineOfRemoval : kFirstLine) + "\n";
  for (const std::string& name : journal.names) {
    text += std::string(removes ? kPlaced : "") + name + "\n";
  }
  for (const std::string& name : journal.removed) text += std::string(kRemoved) + name + "\n";
  return text;
}

/// Finds out before the restore is decided whether the file could be put in place. Throws
/// FileError.
void ExpectPlaceFor(const std::string& directory, const std::string& name) {
  constexpr const char* kFailure = "could not be put in place";
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

/// The mark goes last: without it, the name is that of a file which somebody made later.
void RemoveMarked(const std::string& mark, const std::string& path) {
  if (!IsTaken(mark)) return;
  RemoveFile(path);
  RemoveFile(mark);
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
void RemoveStage(const std::string& directory) {
  RemoveFile(directory + kRestoreJournal);
  DeleteFolder(WithoutSeparator(directory + kRestoreFolder));
}

}  // namespace

RestoreStage::RestoreStage(std::string programDirectory) : directory_(std::move(programDirectory)) {
  const std::string folder = directory_ + kRestoreFolder;
  if (IsRestorePending(directory_)) {
    throw FileError(folder, "is in the way", "An earlier change is not finished");
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
    RemoveStage(directory_);
  } catch (const FileError&) {
    // The next start removes it.
  }
}

void RestoreStage::Stage(const std::string& name, const std::string& path,
                         std::span<const Byte> content) {
  if (!LeadsBelow(name)) {
    throw FileError(name, "could not be put in place", "It does not lie in the program directory");
  }
  ExpectPlaceFor(directory_, name);
  MakeFolders(WithoutSeparator(FolderOf(path)));
  File file = File::CreateNew(path, kPrivateFile);
  file.WriteAt(0, content);
  TakePermissions(file, directory_ + name);
  file.FlushToDevice();
  file.CloseWritten();
}

void RestoreStage::Add(const std::string& name, std::span<const Byte> content) {
  Stage(name, directory_ + kRestoredFiles + name, content);
  names_.push_back(name);
  AddFoldersOf(name, directory_ + kRestoredFiles, folders_);
}

void RestoreStage::Remove(const std::string& name) {
  Stage(name, directory_ + kRemovalMarks + name, {});
  removed_.push_back(name);
  AddFoldersOf(name, directory_ + kRemovalMarks, folders_);
}

void RestoreStage::Commit() {
  FlushFolders(folders_);
  FlushFolders({directory_});
  const std::string journal = TextOf(Journal{.names = names_, .removed = removed_});
  WriteWholeFile(directory_ + kRestoreJournal, AsBytes(journal));
  isCommitted_ = true;
}

bool IsRestorePending(const std::string& programDirectory) {
  return IsTaken(programDirectory + kRestoreJournal);
}

void FinishRestore(const std::string& programDirectory) {
  if (IsRestorePending(programDirectory)) {
    const Journal journal = ReadJournal(programDirectory + kRestoreJournal);
    const std::string files = programDirectory + kRestoredFiles;
    const std::string marks = programDirectory + kRemovalMarks;
    std::set<std::string> folders;
    for (const std::string& name : journal.names) {
      PutInPlace(files + name, programDirectory + name);
      AddFoldersOf(name, programDirectory, folders);
    }
    for (const std::string& name : journal.removed) {
      const std::string path = programDirectory + name;
      RemoveMarked(marks + name, path);
      if (FolderExists(FolderOf(path).empty() ? "." : FolderOf(path)))
        folders.insert(FolderOf(path));
    }
    FlushFolders(folders);
  }
  RemoveUnfinishedBackups(programDirectory);
  try {
    RemoveStage(programDirectory);
  } catch (const FileError&) {
    // Nothing in it is needed any more; the next start removes it.
  }
}

}  // namespace repvolta
