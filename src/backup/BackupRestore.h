#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "backup/BackupReader.h"
#include "backup/PathExchange.h"
#include "backup/RestorePlan.h"
#include "keeping/PendingRestore.h"

namespace repvolta {

/// A backup, checked from its beginning to its end, and what it means for the program directory,
/// which must be current. Nothing is changed there.
class BackupRestore {
 public:
  /// Throws BackupError, FileError, and what `watch` throws.
  explicit BackupRestore(const std::string& backup, BackupWatch watch = {});
  BackupRestore(const BackupRestore&) = delete;
  BackupRestore& operator=(const BackupRestore&) = delete;

  /// Is told of the next reading.
  void SetWatch(BackupWatch watch) { watch_ = std::move(watch); }

  const BackupOrigin& Origin() const { return reader_.Origin(); }

  /// For the folders that the backup's settings and workouts name and that are not here; `home` is
  /// the home folder here. Throws as the constructor.
  std::vector<PathExchange> Proposals(const std::string& home) const;

  /// What a restore would do now. Throws as the constructor.
  RestorePlan Plan(const std::vector<PathExchange>& exchanges) const;

  /// Adds every file that is not here yet, or differs, to `stage`. Throws as the constructor.
  RestorePlan Stage(const std::vector<PathExchange>& exchanges, RestoreStage& stage) const;

 private:
  using TakePlanned = std::function<void(const RestoredFile& file, std::span<const Byte> content)>;
  RestorePlan ForEachPlanned(const std::vector<PathExchange>& exchanges,
                             const TakePlanned& take) const;

  BackupWatch watch_;
  BackupReader reader_;
};

}  // namespace repvolta
