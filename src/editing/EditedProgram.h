#pragma once

#include <string>

#include "app/ScreenUpdate.h"
#include "app/WorkoutFiles.h"
#include "update/Program.h"

namespace repvolta {

/// The program as the commands of the window have it: all that is in memory can be read, and what
/// is no part of a workout can be changed. A workout changes only through History.
class EditedProgram {
 public:
  EditedProgram(Program& program);  // NOLINT(google-explicit-constructor): it is the same program

  const ProgramState& state;
  const Clock& clock;
  RandomNumbers& random;
  ChildProcesses& processes;
  SpeechSynthesizer& speech;

  /// What is changed here is not saved yet.
  SettingsRecord& Settings() const { return program_.state.Settings; }
  OptionLines& Options() const { return program_.state.Options; }
  VoiceState& Voice() const { return program_.state.Voice; }

  // The same as the procedures of src/app and src/update of similar names; they throw what those
  // throw.
  void ReadSettings() const;
  void ReloadSettings() const;
  void WriteSettings() const;
  void ReadOptions() const;
  void ReloadOptions() const;
  void WriteOptions() const;
  void StartVoice() const;
  void CountMusic() const;

  /// The file has settings that could not be read, so it must not be replaced.
  void KeepUnreadSettings(bool areUnread) const;

  /// While the result exists, the program itself fills the controls.
  [[nodiscard]] ScreenUpdate BeginScreenUpdate() const { return ScreenUpdate(program_.state); }

  /// Makes the exercise the current one. Throws std::overflow_error.
  void SelectExercise(int exercise) const;

  // Drop the blanks around names in memory, which the lists do not show.

  /// Makes the exercise the current one and returns its name.
  std::string SelectAndTrimName(int exercise) const;

  /// Of all exercises in use.
  void TrimNames() const;

  // Names the workout, and loads it.
  void NameWorkout(const std::string& fileName) const;
  WorkoutLoad ReadWorkout() const;
  void ReadWorkoutAnew() const;
  void ReadNames() const;

  /// Keeps the file of the workout in memory as KeepBeforeChange does.
  std::string KeepVersionBeforeChange() const;

  /// The person knows why no version was kept.
  void RememberUnkeptTold() const { program_.state.Kept.isFailureTold = true; }

  /// Files of a restored backup are not all in place, so nothing may be saved; or they are.
  void RememberPendingRestore(bool isPending) const { program_.state.RestoreIsPending = isPending; }

  void UpdateAllWorkouts(bool all) const { program_.state.UpdatingAllWorkouts = all; }

 private:
  friend class History;

  Program& program_;
};

}  // namespace repvolta
