#pragma once

#include <map>
#include <string>

#include "backup/BackupReader.h"

namespace repvolta {

/// The files in a backup, by their paths.
inline std::map<std::string, std::string> FilesIn(const std::string& backup) {
  std::map<std::string, std::string> files;
  BackupReader(backup).ForEachFile([&](const BackupEntry& entry, std::span<const Byte> content) {
    files[entry.path] = AsText(content);
  });
  return files;
}

}  // namespace repvolta
