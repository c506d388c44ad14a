#include "editing/UpdateCommands.h"

#include "app/WorkoutFiles.h"
#include "base/FileError.h"
#include "base/Text.h"
#include "update/OutputPath.h"
#include "update/UpdateDriver.h"
#include "update/UpdateLock.h"

namespace repvolta {
namespace {

bool CanUpdate(Program& program) {
  MakeProgramDirectoryCurrent(program.state);
  if (TrimBlanks(program.state.WorkoutFileName).empty()) return false;
  if (!IsOutputPathMissing(program.state.Settings)) return true;
  program.screen.ShowMessage("Cannot perform update, no Output file path has been specified.");
  return false;
}

/// kNotFound also when it could not be read, which is told.
WorkoutLoad LoadOrTell(Program& program) {
  try {
    return LoadUnshownWorkout(program.state, program.screen);
  } catch (const std::exception& error) {
    program.screen.ShowMessage(error.what());
    return WorkoutLoad::kNotFound;
  }
}

void ShowOrTell(Program& program) {
  try {
    ShowLoadedWorkout(program.state, program.screen);
  } catch (const std::exception& error) {
    program.screen.ShowMessage(program.state.WorkoutFileName +
                               " cannot be shown as a whole, but is updated all the same.\r" +
                               error.what());
  }
}

void LoadAndUpdate(Program& program, const std::string& name) {
  program.state.WorkoutFileName = name;
  const WorkoutLoad load = LoadOrTell(program);
  // The workout before must not be saved under this one's name.
  if (load == WorkoutLoad::kNotFound) return;
  if (load == WorkoutLoad::kLoaded) ShowOrTell(program);
  UpdateCurrentWorkout(program);
}

}  // namespace

void UpdateSelectedWorkout(Program& program) {
  if (!CanUpdate(program)) return;
  const UpdateLock lock(program.state.ProgramDirectory);
  program.state.UpdatingAllWorkouts = false;
  UpdateCurrentWorkout(program);
}

void UpdateAllWorkouts(Program& program) {
  if (!CanUpdate(program)) return;
  const UpdateLock lock(program.state.ProgramDirectory);
  program.state.UpdatingAllWorkouts = true;
  const std::vector<std::string> names = program.state.WorkoutNames;
  for (const std::string& name : names) LoadAndUpdate(program, name);
  // One pass more than there are workouts: the command ends with no workout's name. Meant so.
  LoadAndUpdate(program, "");
  program.screen.ShowMessage("Update COMPLETED on all Workouts");
}

}  // namespace repvolta
