#include "editing/EditedProgram.h"

#include "app/Options.h"
#include "app/Settings.h"
#include "app/Voice.h"
#include "base/Numbers.h"
#include "keeping/KeepWorkout.h"
#include "update/RandomMusicList.h"

namespace repvolta {

EditedProgram::EditedProgram(Program& program)
    : state(program.state),
      clock(program.clock),
      random(program.random),
      processes(program.processes),
      speech(program.speech),
      program_(program) {}

void EditedProgram::ReadSettings() const { LoadSettings(program_.state); }

void EditedProgram::ReloadSettings() const { ReloadChangedSettings(program_.state); }

void EditedProgram::WriteSettings() const { SaveSettings(program_.state); }

void EditedProgram::ReadOptions() const { LoadOptions(program_.state); }

void EditedProgram::ReloadOptions() const { ReloadChangedOptions(program_.state); }

void EditedProgram::WriteOptions() const { SaveOptions(program_.state); }

void EditedProgram::StartVoice() const { SetUpVoice(program_.state); }

void EditedProgram::CountMusic() const { CountRandomMusicFiles(program_.state); }

void EditedProgram::KeepUnreadSettings(bool areUnread) const {
  program_.state.SettingsAreUnread = areUnread;
}

void EditedProgram::SelectExercise(int exercise) const {
  program_.state.CurrentExercise = CheckedInt16(exercise);
}

std::string EditedProgram::SelectAndTrimName(int exercise) const {
  SelectExercise(exercise);
  auto& name = program_.state.Workout[exercise].ExerciseName;
  name = name.Trimmed();
  return name.Text();
}

void EditedProgram::TrimNames() const {
  for (int i = 0; i < state.NumberOfExercises; ++i) {
    auto& name = program_.state.Workout[i].ExerciseName;
    name = name.Trimmed();
  }
}

void EditedProgram::NameWorkout(const std::string& fileName) const {
  program_.state.WorkoutFileName = fileName;
}

WorkoutLoad EditedProgram::ReadWorkout() const { return LoadWorkout(program_.state); }

void EditedProgram::ReadWorkoutAnew() const { ReadWorkoutAgain(program_.state); }

void EditedProgram::ReadNames() const { LoadWorkoutNames(program_.state); }

std::string EditedProgram::KeepVersionBeforeChange() const {
  return KeepBeforeChange(program_.state, clock.Now());
}

}  // namespace repvolta
