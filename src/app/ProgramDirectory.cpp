#include "app/ProgramDirectory.h"

#include <QStandardPaths>
#include <filesystem>
#include <system_error>

#include "base/File.h"
#include "base/FileError.h"
#include "base/FileNames.h"
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
  return fs::is_directory(executableFolder + "voice");
}

/// All or nothing: half a clip would count as the user's own at the next start.
void CopyWhole(const std::string& source, const std::string& target) {
  WholeFileWriter writer(target);
  writer.Append(ReadWholeFile(source, kLargestSharedFile));
  writer.Commit();
}

/// Copies what `target` lacks, folder by folder.
void CopyMissing(const fs::path& source, const fs::path& target) {
  fs::create_directories(target);
  for (const fs::directory_entry& entry : fs::directory_iterator(source)) {
    const fs::path copy = target / entry.path().filename();
    if (entry.is_directory()) {
      CopyMissing(entry.path(), copy);
    } else if (!fs::exists(fs::symlink_status(copy))) {
      CopyWhole(entry.path(), copy);
    }
  }
}

}  // namespace

std::string FindProgramDirectory(const std::string& executable) {
  const std::string beside = FolderOf(executable);
  return IsPortable(beside) ? beside : UserDataFolder();
}

void FillProgramDirectory(const std::string& programDirectory, const std::string& executable) {
  const std::string beside = FolderOf(executable);
  if (programDirectory == beside) return;
  try {
    fs::create_directories(programDirectory);
    const fs::path shared = fs::path(beside) / kSharedData;
    if (fs::is_directory(shared)) CopyMissing(shared, programDirectory);
  } catch (const fs::filesystem_error& error) {
    if (error.code() == std::errc::interrupted) {
      return FillProgramDirectory(programDirectory, executable);
    }
    throw FileError(programDirectory, "could not be filled", error.code().value());
  }
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
