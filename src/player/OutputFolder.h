#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "player/WorkoutFolder.h"

namespace repvolta {

/// The folder that receives the files of one workout; refuses changes that could harm other files.
/// It is opened once, and everything in it is done through its descriptor: a link or another folder
/// that takes its path in the middle of an update gets nothing and loses nothing.
class OutputFolder {
 public:
  /// The folder is `workoutName` in `outputPath`; both are checked only by Clear().
  OutputFolder(const std::string& outputPath, const std::string& workoutName)
      : place_(outputPath, workoutName) {}

  /// Ends with the separator. Clear() and Create() may change its last part.
  const std::string& Path() const { return place_.Path(); }

  /// The last part of the path.
  const std::string& Name() const { return place_.Name(); }

  /// Deletes the folder and everything in it, even read-only files, except for mounted file
  /// systems. Throws std::runtime_error, and deletes nothing, unless the folder lies directly in
  /// the output path, is neither a link nor a mount point, and holds nothing of `keep`. After such
  /// a refusal no file in the folder is replaced, and nothing is written to a folder outside the
  /// output path. Throws FileError when something could not be deleted (quirk 46). A folder that
  /// the disk keeps for another workout stays; this one then gets a number: "monday (2)".
  void Clear(const Keepsakes& keep) { place_.Clear(keep); }

  /// Finds the folder that Clear() would delete, and throws what that throws before it deletes
  /// anything. Nothing is changed, and afterwards the object is good for its path and name only.
  void Look(const Keepsakes& keep) { place_.Look(keep); }

  /// Creates the folder unless it exists. Where the disk refuses its name, the nearest one that it
  /// takes is cleared and created instead. Throws FileError, and what Clear() throws.
  void Create();

  /// Writes a copy of the file `source`, in one pass, under `name` or the nearest name that the
  /// disk takes, which it returns. Throws FileError; then no partial copy is left.
  std::string CopyInto(const std::string& source, const std::string& name,
                       const CopyStart& start = {});

  /// The same with a text instead of a copy.
  std::string WriteInto(const std::string& name, std::string_view text);

  /// A file of the folder. Throws FileError when there is no such file.
  File OpenFile(const std::string& name, File::Access access);

  /// The status of an entry, not that of what a link points to; nothing when it is not there, or
  /// not yet. Throws FileError when the disk cannot tell.
  std::optional<struct stat> StatusOf(const std::string& name);

  /// Waits until the written files and the folder are on the device. Throws FileError for the first
  /// failure, and when the folder is no longer at its path.
  void FlushToDevice();

 private:
  using Use = WorkoutFolder::Use;

  bool Open();
  const FolderHandle& Opened(const std::string& name, const char* failure);
  void CheckUse(const std::string& name) const;
  File CreateOrReplace(const std::string& name);
  File CreateNamed(const std::string& name);
  File CreateFile(const std::string& name);
  template <class Write>
  std::string WriteNew(const std::string& name, Write write);
  void Finish(const std::string& name, File& file);

  WorkoutFolder place_;
  FolderHandle folder_;  // opened when it is first needed
  bool isProgram_ = false;
  std::set<std::string> written_;
};

}  // namespace repvolta
