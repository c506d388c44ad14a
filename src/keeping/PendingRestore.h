#pragma once

#include <set>
#include <span>
#include <string>
#include <vector>

#include "base/Bytes.h"

namespace repvolta {

/// Files on their way into the program directory, of a backup or of a voice, all or none of them.
/// They are written and flushed in a folder of their own, which no other part of the program reads.
/// Commit() then puts a journal beside them, from which moment the restore is decided:
/// FinishRestore puts the files in place, at the next start if not at once. Until then nothing has
/// changed, and without Commit() the folder is removed.
class RestoreStage {
 public:
  /// `programDirectory` ends with the separator; "" is the current one. Throws FileError, also when
  /// an earlier restore is not finished.
  explicit RestoreStage(std::string programDirectory);
  ~RestoreStage();
  RestoreStage(const RestoreStage&) = delete;
  RestoreStage& operator=(const RestoreStage&) = delete;

  /// `name` is a path below the program directory. Throws FileError, also when it could not be put
  /// in place there.
  void Add(const std::string& name, std::span<const Byte> content);

  /// The file is removed when the others are put in place; it need not exist. Throws FileError.
  void Remove(const std::string& name);

  /// Throws FileError; then nothing is restored, unless IsRestorePending.
  void Commit();

 private:
  void Stage(const std::string& name, const std::string& path, std::span<const Byte> content);

  std::string directory_;
  std::vector<std::string> names_;
  std::vector<std::string> removed_;
  std::set<std::string> folders_;
  bool isCommitted_ = false;
};

/// True when files of a restore may not be in place yet. They must be before anything else is read
/// or written. Throws FileError when the disk cannot tell.
bool IsRestorePending(const std::string& programDirectory);

/// Puts the files of a restore that was decided in place, by renaming; removes one that was not. It
/// can be called again after any failure or kill. The directory's lock must be held. Throws
/// FileError when not all files are in place.
void FinishRestore(const std::string& programDirectory);

}  // namespace repvolta
