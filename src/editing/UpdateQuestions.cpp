#include "editing/UpdateQuestions.h"

#include <deque>
#include <string>
#include <vector>

#include "app/WorkoutFiles.h"
#include "player/PlayerDisk.h"
#include "update/Room.h"

namespace repvolta {
namespace {

constexpr const char* kQuestion = ". Update all the same?";
constexpr const char* kTitleOfOne = "Update Workout";
constexpr const char* kTitleOfAll = "Update ALL Workouts";

/// Another program may have updated meanwhile and remembered where the player is. If its options
/// cannot be read, those in memory have to do: the next save reports it.
std::string WhyMissing(const EditedProgram& program) {
  try {
    program.ReloadOptions();
  } catch (const FileError&) {
  }
  return WhyPlayerIsMissing(program.state);
}

/// The listed workouts as their files hold them; those that cannot be read are left out, because
/// the update leaves them out, too.
std::deque<ProgramState> ListedWorkouts(const ProgramState& state) {
  std::deque<ProgramState> workouts;
  for (const std::string& name : state.WorkoutNames) {
    ProgramState workout = state;
    workout.WorkoutFileName = name;
    try {
      if (LoadWorkout(workout) == WorkoutLoad::kLoaded) workouts.push_back(std::move(workout));
    } catch (const std::exception&) {
    }
  }
  return workouts;
}

std::optional<LackOfRoom> LackOfRoomForAll(const Editor& editor) {
  const std::deque<ProgramState> workouts = ListedWorkouts(editor.State());
  std::vector<const ProgramState*> all;
  all.reserve(workouts.size());
  for (const ProgramState& workout : workouts) all.push_back(&workout);
  return FindLackOfRoom(all, editor.program.clock.Today());
}

}  // namespace

bool ConfirmUpdate(const Editor& editor) {
  const std::string missing = WhyMissing(editor.program);
  if (!missing.empty()) return editor.dialogs.Confirm(missing + kQuestion, kTitleOfOne);
  const auto lack = FindLackOfRoom({&editor.State()}, editor.program.clock.Today());
  return !lack ||
         editor.dialogs.Confirm(editor.State().WorkoutFileName + " " + TextOf(*lack) + kQuestion,
                                kTitleOfOne);
}

bool ConfirmUpdateOfAll(const Editor& editor) {
  const std::string missing = WhyMissing(editor.program);
  if (!missing.empty()) return editor.dialogs.Confirm(missing + kQuestion, kTitleOfAll);
  const auto lack = LackOfRoomForAll(editor);
  return !lack || editor.dialogs.Confirm("The update of all workouts " + TextOf(*lack) + kQuestion,
                                         kTitleOfAll);
}

}  // namespace repvolta
