#include "editing/StepStack.h"

#include "base/Text.h"

namespace repvolta {
namespace {

/// docs/decisions/0015-undo.md says what they cost.
constexpr int kMostSteps = 500;

/// Holds a step in a QUndoStack.
class Command : public QUndoCommand {
 public:
  explicit Command(UndoStep step)
      : QUndoCommand(QString::fromStdString(ShownOnOneLine(step.description.name))),
        step_(std::move(step)) {}

  const UndoStep& Held() const { return step_; }

 private:
  UndoStep step_;
};

}  // namespace

StepStack::StepStack() { stack_.setUndoLimit(kMostSteps); }

void StepStack::Push(UndoStep step) {
  if (step.renamed) {
    auto unsaved = unsaved_.extract(step.renamed->first);
    if (unsaved) unsaved_[step.renamed->second] = unsaved.mapped();
  }
  for (const FileChange& file : step.files) {
    latest_[file.path] = file.after;
    unsaved_.erase(file.path);
    if (!file.isSaved) unsaved_[file.path] = file.after;
  }
  stack_.push(new Command(std::move(step)));
}

void StepStack::Clear() {
  stack_.clear();
  latest_.clear();
  unsaved_.clear();
}

const FileState& StepStack::Latest(const std::string& path) const {
  static const FileState kNone;
  const auto found = latest_.find(path);
  return found == latest_.end() ? kNone : found->second;
}

std::optional<FileState> StepStack::Unsaved(const std::string& path) const {
  const auto found = unsaved_.find(path);
  return found == unsaved_.end() ? std::nullopt : std::optional(found->second);
}

const UndoStep* StepStack::At(int index) const {
  const auto* command = static_cast<const Command*>(stack_.command(index));
  return command == nullptr ? nullptr : &command->Held();
}

}  // namespace repvolta
