#pragma once

#include <set>
#include <string>

#include "base/File.h"
#include "update/Keepsakes.h"

namespace repvolta {

/// The folder that receives the files of one workout; refuses changes that could harm other files.
class OutputFolder {
 public:
  /// The folder is `workoutName` in `outputPath`; both are checked only by Clear().
  OutputFolder(const std::string& outputPath, const std::string& workoutName);

  /// Ends with the separator.
  const std::string& Path() const { return path_; }

  /// Deletes the folder and everything in it, even read-only files, except for mounted file
  /// systems. Throws std::runtime_error, and deletes nothing, unless the folder lies directly in
  /// the output path, is neither a link nor a mount point, and holds nothing of `keep`. After such
  /// a refusal no file in the folder is replaced, and nothing is written to a folder outside the
  /// output path. Throws FileError when something could not be deleted (quirk 46).
  void Clear(const Keepsakes& keep);

  /// Creates the folder unless it exists. Throws FileError.
  void Create() const;

  /// Announces that `path`, in the folder, will be written. Throws FileError when it must not be
  /// changed.
  void Claim(const std::string& path);

  /// Claims `target`, in the folder, and copies the file `source` to it. Throws FileError; then no
  /// partial copy is left.
  void CopyInto(const std::string& source, const std::string& target, const CopyStart& start = {});

  /// Makes the system start to write a finished file of the folder to the device, so that a slow
  /// player works while the next instruction is encoded. Throws FileError.
  static void StartFlush(const std::string& path);

  /// False for a link to a file elsewhere, for files that already were in a folder that Clear()
  /// refused, and for every file when the folder lies outside the output path.
  bool MayChange(const std::string& path) const;

  /// Waits until the claimed files and the folder are on the device. Throws FileError for the first
  /// failure.
  void FlushToDevice() const;

 private:
  enum class Use { kReplace, kAddOnly, kNothing };

  /// Throws std::runtime_error.
  [[noreturn]] void Refuse(const std::string& why) const;

  std::string Folder() const { return path_.substr(0, path_.size() - 1); }

  std::string name_;
  std::string path_;
  Use use_ = Use::kReplace;
  std::set<std::string> claimed_;
};

}  // namespace repvolta
