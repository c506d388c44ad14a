#include "editing/StepWatch.h"

#include <utility>

#include "app/RecordFormat.h"
#include "app/WorkoutFiles.h"
#include "base/File.h"
#include "base/FileError.h"
#include "base/Text.h"

namespace repvolta {
namespace {

bool IsSame(const std::optional<KnownWorkoutFile>& a, const std::optional<KnownWorkoutFile>& b) {
  if (!a || !b) return !a && !b;
  return a->name == b->name && a->file == b->file && a->stamp == b->stamp;
}

}  // namespace

StepWatch::StepWatch(const ProgramState& state, Of what, std::string path, const FileState& like,
                     const std::optional<FileState>& unsaved)
    : state_(state), what_(what), known_(state.KnownFile) {
  change_.path = std::move(path);
  change_.unsaved = unsaved;
  try {
    FindBefore(like);
  } catch (const FileError&) {
    failure_ = std::current_exception();
  }
}

const FileChange& StepWatch::Beginning() const {
  if (!IsKnown()) std::rethrow_exception(failure_);
  return change_;
}

FileChange StepWatch::End() {
  if (!IsKnown()) return {};
  try {
    FindAfter();
    return change_;
  } catch (const FileError&) {
    failure_ = std::current_exception();
    return {};
  }
}

bool StepWatch::IsInMemory() const {
  return !TrimBlanks(state_.WorkoutFileName).empty() && PathOfWorkout(state_) == change_.path;
}

FileState StepWatch::Memory(const FileState& like) const {
  return {EncodeWorkout(state_.Workout), like};
}

FileState StepWatch::Saved() const {
  if (StampOf(change_.path) == state_.KnownFile->stamp) {
    return ReadFileState(change_.path, change_.before);
  }
  // Somebody else has changed the file since; what was saved is what the memory holds.
  return Memory(change_.before);
}

void StepWatch::FindBefore(const FileState& like) {
  change_.onDisk = change_.before = change_.after = ReadFileState(change_.path, like);
  if (!IsInMemory()) return;
  memory_ = Memory(change_.onDisk);
  const bool isUnsaved = change_.unsaved == memory_;
  const bool isTheirs = what_ == Of::kWorkoutInMemory && WorkoutChangedOnDisk(state_);
  // A file that somebody else has deleted comes back with the next save, and stays when that is
  // undone.
  if (isUnsaved || isTheirs || !change_.onDisk.IsFile()) change_.before = change_.after = memory_;
  // What somebody else has written is never to be replaced by a step.
  if (isTheirs) change_.onDisk = memory_;
}

void StepWatch::FindAfter() {
  if (IsInMemory()) {
    change_.isSaved = state_.KnownFile && !IsSame(state_.KnownFile, known_);
    FileState now = change_.isSaved ? Saved() : Memory(change_.before);
    if (change_.isSaved || (memory_.IsFile() && now != memory_)) {
      change_.after = std::move(now);
      return;
    }
  }
  change_.isSaved = true;
  change_.after = change_.before;
  if (what_ == Of::kFile) change_.after = ReadFileState(change_.path, change_.before);
}

}  // namespace repvolta
