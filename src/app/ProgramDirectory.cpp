#include "app/ProgramDirectory.h"

#include <QStandardPaths>
#include <filesystem>
#include <span>
#include <stdexcept>
#include <system_error>

#include "base/File.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/ProgramFiles.h"
#include "base/WholeFile.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSharedData = "../share/repvolta/";
constexpr const char* kProgramVoiceFolders[] = {"program-voice/", "../share/repvolta/voice/"};
constexpr const char* kWordListFolders[] = {"words/", "../share/repvolta/words/"};
constexpr const char* kGuideFolders[] = {"guide/", "../share/doc/repvolta/guide/"};
constexpr const char* kFirstPage = "index.html";

std::string UserDataFolder() {
  if (qEnvironmentVariableIsEmpty("HOME") && qEnvironmentVariableIsEmpty("XDG_DATA_HOME")) {
    throw std::runtime_error(
        "There is no home folder to keep the workouts in: HOME names none, "
        "and this user has none");
  }
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  return folder.toStdString() + "/repvolta/";
}

/// All or nothing: the next start would keep half a clip as if it were the user's own.
void CopyWhole(const std::string& source, const std::string& target) {
  const File shared = File::Open(source, File::Access::kRead);
  WholeFileWriter writer(target);
  writer.AppendRest(shared, 0);
  writer.Commit();
}

/// Copies the files that `target` lacks, folder by folder; both paths end with a separator.
void CopyMissing(const std::string& source, const std::string& target) {
  MakeFolders(target);
  const int error = ForEachEntry(source, [&](std::string_view name, EntryType /*type*/) {
    const std::string shared = source + std::string(name);
    const std::string copy = target + std::string(name);
    if (FolderExists(shared)) {
      CopyMissing(shared + "/", copy + "/");
    } else if (!IsTaken(copy)) {
      CopyWhole(shared, copy);
    }
  });
  if (error != 0) throw FileError(source, "could not be read", error);
}

/// The first of the folders, which are beside the executable, that there is; "" when there is none.
std::string FirstFolder(const std::string& executable, std::span<const char* const> folders) {
  for (const char* folder : folders) {
    std::string found = FolderOf(executable) + folder;
    if (FolderExists(found)) return found;
  }
  return "";
}

}  // namespace

std::string FindProgramDirectory(const std::string& executable) {
  const std::string beside = FolderOf(executable);
  return FolderExists(beside + kClipFolder) ? beside : UserDataFolder();
}

void FillProgramDirectory(const std::string& programDirectory, const std::string& executable) {
  const std::string beside = FolderOf(executable);
  if (programDirectory == beside) return;
  MakeFolders(programDirectory);
  const std::string shared = beside + kSharedData;
  if (FolderExists(shared)) CopyMissing(shared, programDirectory);
}

std::string FindProgramVoice(const std::string& executable) {
  return FirstFolder(executable, kProgramVoiceFolders);
}

std::string FindWordLists(const std::string& executable) {
  return FirstFolder(executable, kWordListFolders);
}

std::string FindGuide(const std::string& executable) {
  for (const char* folder : kGuideFolders) {
    std::string found = FolderOf(executable) + folder;
    if (IsTaken(found + kFirstPage)) return found;
  }
  return "";
}

void LinkEncoder(const std::string& programDirectory) {
  const std::string link = programDirectory + kEncoder;
  const QString encoder = QStandardPaths::findExecutable("lame");
  std::error_code unknown;
  const bool isMissing = fs::status(link, unknown).type() == fs::file_type::not_found;
  if (!isMissing || encoder.isEmpty()) return;
  std::error_code readOnly;
  fs::remove(link, readOnly);
  fs::create_symlink(encoder.toStdString(), link, readOnly);
}

}  // namespace repvolta
