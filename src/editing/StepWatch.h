#pragma once

#include <exception>
#include <optional>
#include <string>

#include "app/ProgramState.h"
#include "editing/StepFiles.h"

namespace repvolta {

/// Finds out what a command changes of a workout, between its beginning and its end.
class StepWatch {
 public:
  enum class Of { kWorkoutInMemory, kFile };

  /// Begins. `like` is a state to share parts with, `unsaved` the last change of the file that
  /// could not be saved. Of the workout in memory only that counts as changed what the command
  /// itself changes there; of a file, what it holds.
  StepWatch(const ProgramState& state, Of what, std::string path, const FileState& like,
            const std::optional<FileState>& unsaved);

  /// What was there at the beginning, as a change to nothing else. Throws FileError.
  const FileChange& Beginning() const;

  /// What was changed since the beginning, perhaps nothing. Nothing also comes back when it cannot
  /// be known: then IsKnown is false.
  FileChange End();
  bool IsKnown() const { return failure_ == nullptr; }

 private:
  bool IsInMemory() const;
  FileState Memory(const FileState& like) const;
  FileState Saved() const;
  void FindBefore(const FileState& like);
  void FindAfter();

  const ProgramState& state_;
  Of what_;
  FileChange change_;
  FileState memory_;  // at the beginning; no file if the workout was not in memory
  std::optional<KnownWorkoutFile> known_;
  std::exception_ptr failure_;
};

}  // namespace repvolta
