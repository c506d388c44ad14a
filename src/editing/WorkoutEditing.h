#pragma once

#include <string>

#include "editing/Editor.h"

namespace repvolta {

/// Asks for a name and begins an empty workout under it; a workout of the same name is replaced,
/// and the list then shows the name twice (quirk 104). When it cannot be saved, all is as before.
/// Throws FileError.
void CreateNewWorkoutButton_Click(Editor& editor);

/// Asks for confirmation, deletes the file with the workout's name, and lists the workouts again.
/// Throws FileError.
void DeleteSelectedWorkoutButton_Click(Editor& editor);

/// Loads the chosen workout. If it does not exist or cannot be read, the previous one stays chosen.
/// Throws FileError.
void WorkoutDropBox_Click(Editor& editor, const std::string& name);

}  // namespace repvolta
