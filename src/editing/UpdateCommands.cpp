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

void LoadAndUpdate(Program& program, const std::string& name) {
  program.state.WorkoutFileName = name;
  WorkoutLoad load = WorkoutLoad::kNotFound;
  try {
    load = LoadWorkout(program.state, program.screen);
  } catch (const FileError& error) {
    program.screen.ShowMessage(error.what());
  }
  // The workout before must not be saved under this one's name.
  if (load != WorkoutLoad::kNotFound) UpdateCurrentWorkout(program);
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
