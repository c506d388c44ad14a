#include "platform/ProgramDirectory.h"

#include <QStandardPaths>
#include <filesystem>
#include <system_error>

#include "base/File.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/WholeFile.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSharedData = "../share/repvolta";
constexpr std::size_t kLargestSharedFile = 64U << 20U;  // bytes
constexpr const char* kEncoderLink = "lame.exe";

std::string UserDataFolder() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  return folder.toStdString() + "/repvolta/";
}

bool IsPortable(const std::string& executableFolder) {
  return FolderExists(executableFolder + "voice");
}

/// All or nothing: half a clip would count as the user's own at the next start.
void CopyWhole(const std::string& source, const std::string& target) {
  WholeFileWriter writer(target);
  writer.Append(ReadWholeFile(source, kLargestSharedFile));
  writer.Commit();
}

/// Copies what `target` lacks, folder by folder.
void CopyMissing(const std::string& source, const std::string& target) {
  MakeFolders(target);
  const int error = ForEachEntry(source, [&](std::string_view name, EntryType type) {
    const std::string from = std::string(source).append("/").append(name);
    const std::string copy = std::string(target).append("/").append(name);
    if (type == EntryType::kFolder || (type == EntryType::kLink && FolderExists(from))) {
      CopyMissing(from, copy);
    } else if (!IsTaken(copy)) {
      CopyWhole(from, copy);
    }
  });
  if (error != 0) throw FileError(source, "could not be read", error);
}

}  // namespace

std::string FindProgramDirectory(const std::string& executable) {
  const std::string beside = FolderOf(executable);
  return IsPortable(beside) ? beside : UserDataFolder();
}

void FillProgramDirectory(const std::string& programDirectory, const std::string& executable) {
  const std::string beside = FolderOf(executable);
  if (programDirectory == beside) return;
  const std::string directory = WithoutSeparator(programDirectory);
  MakeFolders(directory);
  if (FolderExists(beside + kSharedData)) CopyMissing(beside + kSharedData, directory);
}

void LinkEncoder(const std::string& programDirectory) {
  const std::string link = programDirectory + kEncoderLink;
  const QString encoder = QStandardPaths::findExecutable("lame");
  std::error_code unknown;
  const bool isMissing = fs::status(link, unknown).type() == fs::file_type::not_found;
  if (!isMissing || encoder.isEmpty()) return;
  std::error_code readOnly;
  fs::remove(link, readOnly);
  fs::create_symlink(encoder.toStdString(), link, readOnly);
}

}  // namespace repvolta
