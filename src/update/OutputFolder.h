#pragma once

#include <set>
#include <string>

#include "base/File.h"
#include "update/Keepsakes.h"

namespace repvolta {

/// The folder that receives the files of one workout, and what may be done there.
class OutputFolder {
 public:
  /// `outputPath` and `workoutName`, the folder's name in it, are taken as they are.
  OutputFolder(const std::string& outputPath, const std::string& workoutName);

  /// With the separator at its end.
  const std::string& Path() const { return path_; }

  /// Deletes the folder with all that is in it (quirk 46), read-only files too, but not what is
  /// mounted in it.
  /// It must lie right in the output path, be no link and no mounted file system, and neither be
  /// nor hold what is to be kept; else throws std::runtime_error, of which FileError is one, and
  /// nothing is deleted: from then on no file in it is replaced, and nothing is written where it
  /// leads out of the output path. Throws FileError when something could not be deleted.
  void Clear(const Keepsakes& keep);

  /// Makes the folder unless it is there. Throws FileError.
  void Create() const;

  /// Says that `path`, which lies in the folder, is going to be written. Throws FileError when it
  /// may not be changed.
  void Claim(const std::string& path);

  /// Claims `target`, which lies in the folder, and copies the file `source` to it. Throws
  /// FileError; then no half copy is left.
  void CopyInto(const std::string& source, const std::string& target, const CopyStart& start = {});

  /// Lets the system begin to bring a file of the folder, which stays as it is from now on, to the
  /// device: a slow player then works while the next instruction is encoded. Throws FileError.
  static void StartFlush(const std::string& path);

  /// False for a file that was there before a folder that is not ours to clear, for every file
  /// where the folder leads out of the output path, and for a link to a file elsewhere.
  bool MayChange(const std::string& path) const;

  /// Returns when the claimed files and the folder are on the device. Throws FileError for the
  /// first that is not.
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
