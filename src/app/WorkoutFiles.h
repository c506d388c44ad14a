#pragma once

#include <string>
#include <vector>

#include "app/ProgramState.h"

namespace repvolta {

/// Fills WorkoutNames and NumberOfWorkouts from the workout folder, in name order; creates the
/// folder if it is missing. Throws FileError.
void LoadWorkoutNames(ProgramState& state);

/// The same without creating anything.
void ReadWorkoutNames(ProgramState& state);

enum class WorkoutLoad { kLoaded, kNoName, kNotFound };

/// Reads the file named by WorkoutFileName into Workout and makes its first exercise the current
/// one. Throws FileError when it cannot be read. Unless the result is kLoaded, the workout in
/// memory is unchanged.
WorkoutLoad LoadWorkout(ProgramState& state);

/// The songs of all exercises of a workout, as their paths.
std::vector<std::string> SongsOf(const ExerciseSlots& workout);

/// The songs of every file in the workout folder. The program directory must be current. Throws
/// FileError.
std::vector<std::string> SongsOfAllWorkoutFiles();

/// The path of the file named by WorkoutFileName, whose case may differ; of one that is not there,
/// where it would be. The program directory must be current.
std::string PathOfWorkout(const ProgramState& state);

/// Trims the names of the exercises, and counts them up to the first blank one; what is behind that
/// is never read.
std::int16_t CountExercises(ExerciseSlots& workout);

/// Makes the program directory current and writes Workout to the file named by WorkoutFileName, all
/// or nothing; without a name it writes nothing. Throws FileError, also for a file whose content
/// was neither loaded nor saved here, since another process may have changed it; that file is kept.
void SaveWorkout(ProgramState& state);

/// Lets the next save under WorkoutFileName replace whatever the file of that name holds now.
/// Throws FileError.
void ReplaceWorkoutFile(ProgramState& state);

/// True when another process has changed the file of the workout in memory since LoadWorkout or
/// SaveWorkout; it must then be loaded again before it is shown or edited. False for a deleted
/// file.
bool WorkoutChangedOnDisk(const ProgramState& state);

/// Reads the file of the workout in memory again. CurrentExercise stays if there is still an
/// exercise with that number, else it becomes 0. Throws FileError.
void ReadWorkoutAgain(ProgramState& state);

}  // namespace repvolta
