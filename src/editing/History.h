#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "editing/EditedProgram.h"
#include "editing/Step.h"
#include "keeping/VersionName.h"

namespace repvolta {

class StepStack;
class StepWatch;
struct FileTransition;
struct UndoStep;

/// The right to change the workout in memory and to save it; only History gives it, so no command
/// can change a workout without a step that undoes it.
class WorkoutAccess {
 public:
  ProgramState& State() const { return program_.state; }
  ExerciseRecord& Exercise() const { return State().Workout[State().CurrentExercise]; }

  /// For an update.
  Program& WholeProgram() const { return program_; }

 private:
  friend class History;
  explicit WorkoutAccess(Program& program) : program_(program) {}

  Program& program_;
};

/// A workout file as it is to be; without bytes there is no such file.
struct NewWorkoutFile {
  std::string name;  // in the workout folder: "Monday.RPV"
  std::optional<Bytes> bytes;
};

/// All changes of workouts since the program began, as steps that can be undone and done again;
/// docs/decisions/0015-undo.md. The program directory must be current where files are concerned.
class History {
 public:
  using Changing = std::function<void(const WorkoutAccess&)>;

  explicit History(const EditedProgram& program);
  ~History();
  History(const History&) = delete;
  History& operator=(const History&) = delete;

  /// Runs `change`, which changes the workout in memory and saves it. It is a step if the file has
  /// changed, or if the memory has and could not be saved. Throws what `change` throws.
  void Change(const StepDescription& step, const Changing& change);

  /// The same for a `change` of the file `path`, below the program directory, which may become
  /// the workout in memory.
  void ChangeFile(const StepDescription& step, const std::string& path, const Changing& change);

  /// Makes one step of all changes that `changes` makes. Throws what it throws; the changes until
  /// then are a step.
  void Together(const StepDescription& step, const std::function<void()>& changes);

  /// Replaces, creates or deletes files of the workout folder, all or none, as one step; what they
  /// held is kept as a version before `what`. Shows nothing and does not load the workout in
  /// memory again: see GoTo in editing/Undo.h. Returns why no version was kept, for TellUnkept.
  /// Throws FileError; then all files are as before. A file that cannot be read, or is too large
  /// for a workout, is replaced all the same; then all steps are forgotten.
  std::string ReplaceFiles(const StepDescription& step, BeforeWhat what,
                           const std::vector<NewWorkoutFile>& files);

  /// Renames a workout file, never over another, with the versions that were kept of it. The
  /// paths are those of files in the workout folder. Returns why the versions keep their old name,
  /// or "". Throws FileError; then nothing is renamed.
  std::string Rename(const StepDescription& step, const std::string& from, const std::string& to);

  /// Forgets all steps, because they no longer lead to what is on the disk.
  void Clear();

  /// What the next Undo or Redo is of: "Remove Exercise 'Bench Press'"; "" when there is none.
  std::string UndoName() const;
  std::string RedoName() const;

  /// Puts back the files of a step. Returns what to show; the workout in memory is not loaded
  /// again. Throws FileError or std::runtime_error when a file is not as the step left it or
  /// cannot be written; then all files and the steps are as before.
  StepDone Undo();
  StepDone Redo();

 private:
  void Watch(const StepDescription& step, StepWatch& watch, const Changing& change);
  void Record(const StepDescription& step, StepWatch& watch);
  std::string KeepVersions(const std::vector<FileTransition>& transitions,
                           std::optional<BeforeWhat> what);
  std::string KeepVersion(const FileTransition& transition, std::optional<BeforeWhat> what);
  std::string MoveWorkout(const std::string& from, const std::string& to);
  std::string Put(const std::vector<FileTransition>& transitions);

  EditedProgram program_;
  std::unique_ptr<StepStack> steps_;
  UndoStep* together_ = nullptr;  // while Together runs
};

}  // namespace repvolta
