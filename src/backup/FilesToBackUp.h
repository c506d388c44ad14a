#pragma once

#include <string>
#include <vector>

#include "backup/BackupContents.h"
#include "base/File.h"

namespace repvolta {

/// A file of the program directory that may belong to a backup.
struct FileToBackUp {
  std::string path;      // relative
  std::string archived;  // its path in the backup: the same, letters with accents in one way
  BackupKind kind;
  FileStamp stamp;

  bool operator==(const FileToBackUp&) const = default;
};

struct FilesToBackUp {
  std::vector<FileToBackUp> files;   // kind by kind, in name order
  std::vector<std::string> leftOut;  // a line for each that no backup can have: which and why

  bool operator==(const FilesToBackUp&) const = default;
};

/// What there is to back up, with the clips and lists that the program brought. The program
/// directory must be current. Throws FileError when a folder or file of it cannot be looked at.
FilesToBackUp FindFilesToBackUp();

}  // namespace repvolta
