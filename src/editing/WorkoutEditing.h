#pragma once

#include <string>

#include "editing/Editor.h"

namespace repvolta {

/// Asks for a name and begins an empty workout under it; a workout of the same name is replaced,
/// and the list then shows the name twice (quirk 104). When it cannot be saved, all is as before.
/// Throws FileError.
void CreateNewWorkoutButton_Click(Editor& editor);

/// Asks, deletes the file of the workout's name, and lists the workouts anew. Throws FileError.
void DeleteSelectedWorkoutButton_Click(Editor& editor);

/// Loads the chosen workout. When it is not there or cannot be read, the one before stays chosen.
/// Throws FileError.
void WorkoutDropBox_Click(Editor& editor, const std::string& name);

}  // namespace repvolta
