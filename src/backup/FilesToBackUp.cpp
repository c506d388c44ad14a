#include "backup/FilesToBackUp.h"

#include <QString>
#include <cerrno>
#include <set>

#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"

namespace repvolta {
namespace {

/// ZIP files have accents in one way, so that names agree on all systems.
std::string Composed(const std::string& path) {
  return QString::fromStdString(path).normalized(QString::NormalizationForm_C).toStdString();
}

class Search {
 public:
  FilesToBackUp Run() {
    for (const char* name : {kSettingsFile, kOptionsFile, kMusicList}) Take(name);
    TakeFolder(kWorkoutFolder, kWorkoutExtension);
    for (const std::string& folder : FoldersIn(kVersionFolder)) TakeVersions(folder);
    TakeFolder(kClipFolder, kClipExtension);
    TakeFolder(kNameClipFolder, kNameClipExtension);
    TakeFolder(kExerciseFolder, kExerciseListExtension);
    for (const char* name : {kClipOrigins, kClipLevels}) Take(name);
    for (const std::string& folder : FoldersIn(kVoicesFolder)) TakeVoice(folder);
    return std::move(found_);
  }

 private:
  void TakeFolder(const std::string& folder, const char* extension) {
    for (const std::string& name : ListFiles(folder, extension)) Take(folder + name);
  }

  /// Other files in the folder are the person's own business.
  void TakeVersions(const std::string& folder) {
    for (const std::string& name : ListFiles(folder, kWorkoutExtension)) {
      if (BackupKindOf(std::string(kVersionFolder) + "x/" + name)) Take(folder + name);
    }
  }

  /// A hidden folder is a voice that is being taken in.
  void TakeVoice(const std::string& folder) {
    const bool isHidden = FileName(WithoutSeparator(folder)).starts_with('.');
    if (isHidden && folder != kOriginalClips) return;
    TakeFolder(folder, kClipExtension);
    TakeFolder(folder + kNameClipSubfolder, kNameClipExtension);
  }

  static std::set<std::string> FoldersIn(const std::string& place) {
    std::set<std::string> folders;
    const int error = ForEachEntry(place, [&](std::string_view name, EntryType type) {
      if (type == EntryType::kFolder) folders.insert(place + std::string(name) + "/");
    });
    if (error != 0 && error != ENOENT) throw FileError(place, "could not be read", error);
    return folders;
  }

  void Take(const std::string& path) {
    const auto stamp = StampOf(path);
    if (!stamp) return;
    const std::string archived = IsUtf8(path) ? Composed(path) : path;
    const auto kind = BackupKindOf(archived);
    if (!kind) {
      LeaveOut(path, "No backup can have its name");
    } else if (stamp->size > LargestInBackup(*kind)) {
      LeaveOut(path, "It is too large");
    } else if (!names_.insert(FoldedBackupPath(archived)).second) {
      LeaveOut(path, "Its name differs only in case from that of another file");
    } else {
      found_.files.push_back({path, archived, *kind, *stamp});
    }
  }

  void LeaveOut(const std::string& path, const char* why) {
    found_.leftOut.push_back(ShownOnOneLine(path) + ": " + why);
  }

  FilesToBackUp found_;
  std::set<std::u32string> names_;
};

}  // namespace

FilesToBackUp FindFilesToBackUp() { return Search().Run(); }

}  // namespace repvolta
