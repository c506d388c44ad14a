#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "backup/BackupContents.h"
#include "backup/BackupError.h"
#include "backup/BackupManifest.h"
#include "base/Bytes.h"
#include "base/File.h"

namespace repvolta {

/// A file in a backup.
struct BackupEntry {
  std::string path;  // in the program directory
  BackupKind kind;
  std::uint64_t size;  // bytes
  std::int64_t time;   // of its last change, as time(); 0 when unknown

  bool operator==(const BackupEntry&) const = default;
};

/// No backup has more than this.
struct BackupLimits {
  std::size_t entries = 20'000;
  std::uint64_t bytes = std::uint64_t{1} << 30;  // unpacked
};

using TakeBackupFile = std::function<void(const BackupEntry& entry, std::span<const Byte> content)>;

/// How many of how many files have been read. What it throws ends the reading.
using BackupWatch = std::function<void(std::size_t done, std::size_t all)>;

/// A backup that may come from anywhere. Everything in it is checked before the object exists;
/// while reading, one of its files at a time is in memory.
class BackupReader {
 public:
  /// Throws BackupError when it is no backup, is damaged, or holds anything else than a backup
  /// does; FileError when it cannot be read.
  explicit BackupReader(const std::string& path, BackupWatch watch = {}, BackupLimits limits = {});

  /// In the order of the backup, without the manifest.
  const std::vector<BackupEntry>& Entries() const { return entries_; }

  const BackupOrigin& Origin() const { return origin_; }

  /// Unpacks one file after the other, checking each again before `take` gets it; the contents that
  /// `take` does not want cost time only. Throws as the constructor, also when the backup was
  /// changed since then, and what `take` throws.
  void ForEachFile(const TakeBackupFile& take) const;

 private:
  File file_;
  FileStamp stamp_;
  BackupWatch watch_;
  BackupLimits limits_;
  BackupOrigin origin_;
  std::size_t count_ = 0;  // of the entries, with the manifest and folders
  std::vector<BackupEntry> entries_;
};

}  // namespace repvolta
