#pragma once

#include <map>
#include <string>
#include <vector>

#include "backup/BackupContents.h"
#include "backup/FilesToBackUp.h"

namespace repvolta {

/// What a restore does with one file of a backup.
enum class RestoreEffect { kAdds, kReplaces, kIsThere };

struct RestoredFile {
  std::string path;    // in the backup
  std::string target;  // below the program directory
  BackupKind kind;
  RestoreEffect effect;

  bool operator==(const RestoredFile&) const = default;
};

/// What a restore would do; nothing is ever deleted by it.
struct RestorePlan {
  std::vector<RestoredFile> files;
  std::vector<FileToBackUp> left;    // which the backup does not have
  std::vector<std::string> damaged;  // paths in the backup of files that are left out
  std::vector<std::string> tooLong;  // paths that stay, because the exchanged ones do not fit

  bool operator==(const RestorePlan&) const = default;
};

/// Where the files of a backup go. Workouts, lists and clips are found without regard to case, so a
/// file of the backup replaces the one that the program would take for it.
class RestoreTargets {
 public:
  explicit RestoreTargets(const std::vector<FileToBackUp>& present);

  /// Versions go to those of the workout that is there, clips of a voice to its others.
  std::string TargetOf(const std::string& path, BackupKind kind) const;

 private:
  std::string PresentName(const std::string& path) const;

  std::string InPresentVoice(const std::string& path) const;

  std::map<std::u32string, std::string> present_;
  std::map<std::u32string, std::string> voices_;  // folders of voices
};

/// The name for a version when another version has its name: the next second's.
std::string NextVersionPath(const std::string& path);

/// Those of `present` that no file of the plan replaces or equals.
std::vector<FileToBackUp> LeftByPlan(const std::vector<FileToBackUp>& present,
                                     const std::vector<RestoredFile>& files);

/// True when the program directory would be as it is.
bool ChangesNothing(const RestorePlan& plan);

/// The plan in words, a sentence a line: what it replaces, adds and leaves.
std::vector<std::string> TextOf(const RestorePlan& plan);

}  // namespace repvolta
