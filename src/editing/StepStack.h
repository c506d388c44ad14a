#pragma once

#include <QUndoStack>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "editing/Step.h"
#include "editing/StepWatch.h"

namespace repvolta {

/// A step with all that undoing it needs.
struct UndoStep {
  StepDescription description;
  std::vector<FileChange> files;
  /// The paths from and to which a workout was renamed; its content stays.
  std::optional<std::pair<std::string, std::string>> renamed;
};

/// The steps of History. A file can refuse to be written, which QUndoStack does not know of, so
/// only the order of the steps is its; whoever moves in it has changed the files already.
class StepStack {
 public:
  StepStack();

  /// Drops the steps that could be done again, and the oldest one when there are too many.
  void Push(UndoStep step);
  void Clear();

  /// Null when there is none.
  const UndoStep* ToUndo() const { return At(stack_.index() - 1); }
  const UndoStep* ToRedo() const { return At(stack_.index()); }

  void StepBack() { stack_.undo(); }
  void StepForward() { stack_.redo(); }

  std::string UndoName() const { return stack_.undoText().toStdString(); }
  std::string RedoName() const { return stack_.redoText().toStdString(); }

  /// The latest state of the file that is known, to share parts with.
  const FileState& Latest(const std::string& path) const;

  /// The last change of the file that could not be saved, if none was saved after it.
  std::optional<FileState> Unsaved(const std::string& path) const;

 private:
  const UndoStep* At(int index) const;

  QUndoStack stack_;
  std::map<std::string, FileState> latest_;
  std::map<std::string, FileState> unsaved_;
};

}  // namespace repvolta
