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
  if (step.renamed && unsaved_ && unsaved_->path == step.renamed->first) {
    unsaved_->path = step.renamed->second;
  }
  for (const FileChange& file : step.files) {
    latest_[file.path] = file.after;
    unsaved_.reset();
    if (!file.isSaved) unsaved_ = {file.path, file.after};
  }
  stack_.push(new Command(std::move(step)));
}

void StepStack::Clear() {
  stack_.clear();
  latest_.clear();
  unsaved_.reset();
}

const FileState& StepStack::Latest(const std::string& path) const {
  static const FileState kNone;
  const auto found = latest_.find(path);
  return found == latest_.end() ? kNone : found->second;
}

const UndoStep* StepStack::At(int index) const {
  const auto* command = static_cast<const Command*>(stack_.command(index));
  return command == nullptr ? nullptr : &command->Held();
}

}  // namespace repvolta
