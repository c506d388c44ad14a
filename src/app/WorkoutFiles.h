#pragma once

#include "app/ProgramState.h"

namespace repvolta {

/// Fills WorkoutNames and their count from the workout folder, in name order; the folder is made
/// when it is missing. Throws FileError.
void LoadWorkoutNames(ProgramState& state);

enum class WorkoutLoad { kLoaded, kNoName, kNotFound };

/// Reads the file named by WorkoutFileName into Workout and makes its first exercise the current
/// one. Throws FileError when it cannot be read. Where it is not loaded, the workout in memory is
/// as it was.
WorkoutLoad LoadWorkout(ProgramState& state);

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

/// Reads the file of the workout in memory again, whatever it holds now; the current exercise stays
/// where there is still one of its number. Throws FileError.
void ReadWorkoutAgain(ProgramState& state);

}  // namespace repvolta
