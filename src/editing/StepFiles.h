#pragma once

#include <optional>
#include <string>
#include <vector>

#include "editing/FileState.h"

namespace repvolta {

/// What a step changed of one file.
struct FileChange {
  std::string path;  // below the program directory, or absolute
  FileState before;
  FileState after;
  /// What the file held before the step: other than `before` if that could not be saved.
  FileState onDisk;
  /// An earlier change that could not be saved. It may have been lost since, but is saved when its
  /// step is done again.
  std::optional<FileState> unsaved;
  bool isSaved = true;  // else `after` was only shown

  bool IsNone() const { return before == after; }
};

/// A file that is to hold `target`, if it holds one of `expected` now.
struct FileTransition {
  std::string path;
  std::vector<FileState> expected;
  FileState target;
};

FileTransition Backwards(const FileChange& change);
FileTransition Forwards(const FileChange& change);

/// Throws FileError that names the first file which holds something else than expected.
void ExpectAll(const std::vector<FileTransition>& transitions);

/// Gives all files their targets, or none. Throws FileError, also when a file is not as expected,
/// and std::runtime_error when a file could not be put back after that, whose state is in what().
void PutAll(const std::vector<FileTransition>& transitions);

}  // namespace repvolta
