#pragma once

#include <map>
#include <string>
#include <vector>

#include "backup/BackupManifest.h"
#include "backup/BackupReader.h"

namespace repvolta {

/// What a backup holds.
struct BackupResult {
  std::map<BackupKind, int> counts;  // of the files, without the manifest
  std::vector<std::string> leftOut;  // a line for each file that no backup can have: which and why
  std::string weakness;  // why the backup, which is in place, may not survive a power cut
};

/// The origin of backups that are made now. `now` is the time as base/Days.h counts it.
BackupOrigin OriginHere(const std::string& programDirectory, double now);

/// Writes everything that a person has made in the program directory, which must be current, into
/// the ZIP file `target`, which is replaced, all or nothing. The files are those of one moment:
/// when another program changes one meanwhile, the backup begins anew. Before it is put in place it
/// is read again and compared. Throws FileError, and what `watch` throws, which is called for each
/// file that is written or compared; then there is no new backup, and `target` is as it was.
BackupResult WriteBackup(const std::string& target, const BackupOrigin& origin,
                         const BackupWatch& watch = {});

}  // namespace repvolta
