#include "editing/StepFiles.h"

#include <algorithm>
#include <stdexcept>
#include <sys/stat.h>

#include "base/File.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/FileStatus.h"
#include "base/Folder.h"
#include "base/WholeFile.h"

namespace repvolta {
namespace {

constexpr const char* kFailure = "could not be changed";

/// What a file holds, and the stamp by which a later change shows.
struct Found {
  FileState state;
  std::optional<FileStamp> stamp;
};

Found Look(const std::string& path, const FileState& like) {
  const std::optional<FileStamp> stamp = StampOf(path);
  return {ReadFileState(path, like), stamp};
}

[[noreturn]] void RefuseChanged(const std::string& path) {
  throw FileError(path, kFailure,
                  "Another program has changed or deleted it meanwhile. It stays as it is. Earlier "
                  "states are in the menu Workout under \"Restore an Earlier Version ...\".");
}

Found LookAndExpect(const FileTransition& transition) {
  Found found = Look(transition.path, transition.target);
  if (std::ranges::find(transition.expected, found.state) == transition.expected.end()) {
    RefuseChanged(transition.path);
  }
  // For the program, and for some disks, names that differ in case only are those of one workout.
  const auto other = found.state.IsFile() ? std::nullopt : FindFile(transition.path);
  if (other) RefuseChanged(*other);
  return found;
}

void Write(const std::string& path, const FileState& target,
           const std::function<void()>& lastCheck) {
  MakeFolder(FolderOf(path).empty() ? "." : FolderOf(path));
  WholeFileWriter writer(path);
  writer.Append(target.Content());
  writer.Commit(lastCheck);
}

/// Unlike RemoveFile, refuses to delete a read-only file, as the window's command does.
void Delete(const std::string& path) {
  constexpr mode_t kWritable = S_IWUSR | S_IWGRP | S_IWOTH;
  const auto status = StatusOf(path, Links::kFollowed);
  if (status && (status->st_mode & kWritable) == 0) {
    throw FileError(path, "could not be deleted", "it is read-only");
  }
  RemoveFile(path);
}

void Put(const std::string& path, const Found& found, const FileState& target) {
  if (found.state == target) return;
  const auto lastCheck = [&] {
    if (StampOf(path) != found.stamp) RefuseChanged(path);
  };
  if (target.IsFile()) {
    Write(path, target, lastCheck);
  } else {
    lastCheck();
    Delete(path);
  }
}

/// A transition that was begun, so that it can be taken back.
struct Begun {
  const FileTransition* transition;
  FileState before;
};

/// Returns a line for each file that could not be put back.
std::string TakeBack(const std::vector<Begun>& begun) {
  std::string failures;
  for (const Begun& one : begun) {
    const std::string& path = one.transition->path;
    try {
      const Found now = Look(path, one.before);
      // What somebody else has written by now is not ours to replace.
      if (now.state == one.transition->target) Put(path, now, one.before);
    } catch (const std::exception& error) {
      failures += "\r" + path + " is changed all the same: " + error.what();
    }
  }
  return failures;
}

}  // namespace

FileTransition Backwards(const FileChange& change) {
  std::vector<FileState> expected{change.after};
  if (!change.isSaved) expected.push_back(change.onDisk);
  return {change.path, std::move(expected), change.before};
}

FileTransition Forwards(const FileChange& change) {
  std::vector<FileState> expected{change.before, change.onDisk};
  if (change.unsaved) expected.push_back(*change.unsaved);
  return {change.path, std::move(expected), change.after};
}

void ExpectAll(const std::vector<FileTransition>& transitions) {
  for (const FileTransition& transition : transitions) LookAndExpect(transition);
}

void PutAll(const std::vector<FileTransition>& transitions) {
  ExpectAll(transitions);
  std::vector<Begun> begun;
  begun.reserve(transitions.size());
  try {
    for (const FileTransition& transition : transitions) {
      const Found found = LookAndExpect(transition);
      begun.push_back({&transition, found.state});
      Put(transition.path, found, transition.target);
    }
  } catch (const std::exception& error) {
    const std::string failures = TakeBack(begun);
    if (failures.empty()) throw;
    throw std::runtime_error(error.what() + failures);
  }
}

}  // namespace repvolta
