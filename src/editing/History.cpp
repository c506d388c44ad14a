#include "editing/History.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "base/File.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/ProgramFiles.h"
#include "base/RenameToNew.h"
#include "base/Text.h"
#include "base/WholeFile.h"
#include "editing/StepStack.h"
#include "keeping/KeepWorkout.h"
#include "keeping/Versions.h"

namespace repvolta {
namespace {

std::vector<FileTransition> TransitionsOf(const UndoStep& step,
                                          FileTransition (*transition)(const FileChange&)) {
  std::vector<FileTransition> transitions;
  transitions.reserve(step.files.size());
  for (const FileChange& file : step.files) transitions.push_back(transition(file));
  return transitions;
}

/// The state between the changes of one file is of no interest.
void Add(UndoStep& step, const FileChange& change) {
  const auto known = std::ranges::find(step.files, change.path, &FileChange::path);
  if (known == step.files.end()) {
    step.files.push_back(change);
    return;
  }
  known->after = change.after;
  known->isSaved = change.isSaved;
}

std::string PathOf(const NewWorkoutFile& file) { return ExistingName(kWorkoutFolder + file.name); }

void PutUnseen(const NewWorkoutFile& file) {
  if (file.bytes) {
    MakeFolder(kWorkoutFolder);
    WriteWholeFile(PathOf(file), *file.bytes);
  } else {
    RemoveFile(PathOf(file));
  }
}

/// Without looking what the files hold, which cannot be read.
std::string ReplaceUnseen(const EditedProgram& program, BeforeWhat what,
                          const std::vector<NewWorkoutFile>& files) {
  std::string unkept;
  for (const NewWorkoutFile& file : files) {
    const std::string failure = KeepBefore(what, PathOf(file), program.state, program.clock.Now());
    if (unkept.empty()) unkept = failure;
  }
  for (const NewWorkoutFile& file : files) PutUnseen(file);
  return unkept;
}

}  // namespace

History::History(const EditedProgram& program)
    : program_(program), steps_(std::make_unique<StepStack>()) {}

History::~History() = default;

void History::Change(const StepDescription& step, const Changing& change) {
  ProgramState& state = program_.program_.state;
  if (TrimBlanks(state.WorkoutFileName).empty()) {
    change(WorkoutAccess(program_.program_));
    return;
  }
  std::string path;
  try {
    MakeProgramDirectoryCurrent(state);
    path = PathOfWorkout(state);
  } catch (const FileError&) {
    // The change will tell; without a path nothing is known of the file.
  }
  StepWatch watch(state, StepWatch::Of::kWorkoutInMemory, path, steps_->Latest(path),
                  steps_->Unsaved(path));
  Watch(step, watch, change);
}

void History::ChangeFile(const StepDescription& step, const std::string& path,
                         const Changing& change) {
  StepWatch watch(program_.state, StepWatch::Of::kFile, path, steps_->Latest(path),
                  steps_->Unsaved(path));
  Watch(step, watch, change);
}

void History::Watch(const StepDescription& step, StepWatch& watch, const Changing& change) {
  try {
    change(WorkoutAccess(program_.program_));
  } catch (...) {
    Record(step, watch);
    throw;
  }
  Record(step, watch);
}

void History::Record(const StepDescription& step, StepWatch& watch) {
  const FileChange change = watch.End();
  if (!watch.IsKnown()) {
    // The steps may not lead to what the file holds now.
    Clear();
  } else if (change.IsNone()) {
    return;
  } else if (together_ != nullptr) {
    Add(*together_, change);
  } else {
    steps_->Push({step, {change}, std::nullopt});
  }
}

void History::Together(const StepDescription& step, const std::function<void()>& changes) {
  UndoStep whole{step, {}, std::nullopt};
  together_ = &whole;
  const auto push = [&] {
    together_ = nullptr;
    std::erase_if(whole.files, [](const FileChange& change) { return change.IsNone(); });
    if (!whole.files.empty()) steps_->Push(std::move(whole));
  };
  try {
    changes();
  } catch (...) {
    push();
    throw;
  }
  push();
}

std::string History::ReplaceFiles(const StepDescription& step, BeforeWhat what,
                                  const std::vector<NewWorkoutFile>& files) {
  UndoStep whole{step, {}, std::nullopt};
  for (const NewWorkoutFile& file : files) {
    const std::string path = PathOf(file);
    const StepWatch watch(program_.state, StepWatch::Of::kFile, path, steps_->Latest(path),
                          steps_->Unsaved(path));
    if (!watch.IsKnown()) {
      Clear();
      return ReplaceUnseen(program_, what, files);
    }
    FileChange change = watch.Beginning();
    change.after = file.bytes ? FileState(*file.bytes, change.before) : FileState();
    if (!change.IsNone()) whole.files.push_back(std::move(change));
  }
  if (whole.files.empty()) return "";
  const auto transitions = TransitionsOf(whole, Forwards);
  std::string unkept = KeepVersions(transitions, what);
  PutAll(transitions);
  steps_->Push(std::move(whole));
  return unkept;
}

std::string History::Rename(const StepDescription& step, const std::string& from,
                            const std::string& to) {
  std::string failure = MoveWorkout(from, to);
  steps_->Push({step, {}, std::pair(from, to)});
  return failure;
}

std::string History::MoveWorkout(const std::string& from, const std::string& to) {
  ProgramState& state = program_.program_.state;
  const bool isInMemory = PathOfWorkout(state) == from;
  RenameToNew(from, to);
  if (isInMemory) state.WorkoutFileName = FileName(to);
  try {
    if (isInMemory) ReplaceWorkoutFile(state);
    MoveVersions(FileName(from), FileName(to));
    return "";
  } catch (const FileError& error) {
    return error.what();
  }
}

std::string History::KeepVersions(const std::vector<FileTransition>& transitions,
                                  std::optional<BeforeWhat> what) {
  ExpectAll(transitions);
  std::string unkept;
  for (const FileTransition& transition : transitions) {
    const std::string failure = KeepVersion(transition, what);
    if (unkept.empty()) unkept = failure;
  }
  return unkept;
}

/// Without `what`, as before any other edit.
std::string History::KeepVersion(const FileTransition& transition, std::optional<BeforeWhat> what) {
  const double now = program_.clock.Now();
  ProgramState& state = program_.program_.state;
  if (!what && !transition.target.IsFile()) what = BeforeWhat::kDeletion;
  if (what) return KeepBefore(*what, transition.path, state, now);
  ProgramState other;
  other.WorkoutFileName = FileName(transition.path);
  other.Kept = state.Kept;
  std::string unkept = KeepBeforeChange(other, now);
  state.Kept = other.Kept;
  return unkept;
}

std::string History::Put(const std::vector<FileTransition>& transitions) {
  std::string unkept = KeepVersions(transitions, std::nullopt);
  PutAll(transitions);
  return unkept;
}

void History::Clear() { steps_->Clear(); }

std::string History::UndoName() const { return steps_->UndoName(); }

std::string History::RedoName() const { return steps_->RedoName(); }

StepDone History::Undo() {
  const UndoStep* step = steps_->ToUndo();
  if (step == nullptr) return {};
  MakeProgramDirectoryCurrent(program_.state);
  const std::string unkept = step->renamed
                                 ? MoveWorkout(step->renamed->second, step->renamed->first)
                                 : Put(TransitionsOf(*step, Backwards));
  StepDone done{step->description.undone, unkept};
  steps_->StepBack();
  return done;
}

StepDone History::Redo() {
  const UndoStep* step = steps_->ToRedo();
  if (step == nullptr) return {};
  MakeProgramDirectoryCurrent(program_.state);
  const std::string unkept = step->renamed
                                 ? MoveWorkout(step->renamed->first, step->renamed->second)
                                 : Put(TransitionsOf(*step, Forwards));
  StepDone done{step->description.done, unkept};
  steps_->StepForward();
  return done;
}

}  // namespace repvolta
