#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "app/Program.h"

namespace repvolta {

inline constexpr std::string_view kWorkoutFolder = "workouts/";
inline constexpr std::string_view kWorkoutExtension = ".RPV";

/// Refills WorkoutDropBox and its count from the workout folder, in name order; the folder is made
/// when it is missing. Throws FileError.
void LoadWorkoutNames(ProgramState& state, UserInterface& screen);

enum class WorkoutLoad { kLoaded, kNoName, kNotFound };

/// Reads the file named by WorkoutFileName into Workout, selects its first exercise and refreshes
/// both tabs. Says so when there is no such file, or when what was loaded is damaged. Throws
/// FileError when it cannot be read. Where it is not loaded, the workout in memory is as it was.
WorkoutLoad LoadWorkout(ProgramState& state, UserInterface& screen);

/// The two halves of LoadWorkout: whoever goes on with a workout that cannot be shown must know
/// that it was loaded. The first refreshes nothing; the second throws what the refresh throws.
WorkoutLoad LoadUnshownWorkout(ProgramState& state, UserInterface& screen);
void ShowLoadedWorkout(const ProgramState& state, UserInterface& screen);

/// Makes the program directory current and writes Workout to the file named by WorkoutFileName, all
/// or nothing; without a name it writes nothing. Throws FileError, also when the file holds what
/// was not loaded or saved here, as when another process has changed it: that is then kept.
void SaveWorkout(ProgramState& state);

/// Lets the next save under WorkoutFileName replace whatever the file of that name holds now.
/// Throws FileError.
void ReplaceWorkoutFile(ProgramState& state);

/// True when another process has changed the file of the workout in memory since LoadWorkout or
/// SaveWorkout: it is then to be loaded again before it is shown or edited. False when it is gone.
bool WorkoutChangedOnDisk(const ProgramState& state);

/// The rows that the person saw and selected are no longer those of the workout.
class WorkoutReplaced : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Loads the workout in memory again when another process has changed its file, and refreshes both
/// tabs; the current exercise stays. Throws FileError; or WorkoutReplaced when not only values have
/// grown but exercises, sets or the music of the current exercise are others.
void ReloadChangedWorkout(ProgramState& state, UserInterface& screen);

}  // namespace repvolta
