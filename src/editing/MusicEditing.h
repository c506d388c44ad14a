#pragma once

#include <string>
#include <vector>

#include "editing/Editor.h"

namespace repvolta {

// The commands that edit the music of the current exercise. `row` is the selected row of MusicList,
// or -1. Each change is saved; docs/decisions/0001-errors.md says what happens when that fails.

/// Asks for files and adds them after the others. Throws for a single file what AddMusicFile
/// throws; of several files, a message says which ones were not added.
void AddMusicFileButton_Click(Editor& editor);

/// Adds the songs in dropped files and folders. One message says what was not added.
void MusicList_DragDrop(Editor& editor, const std::vector<std::string>& paths);

void MoveMusicFileUpListButton_Click(Editor& editor, int row);

/// Throws std::overflow_error when the total time does not fit; then nothing is removed.
void RemoveMusicFileButton_Click(Editor& editor, int row);

void RandomMusicCheckBox_Click(Editor& editor, CheckBox box);

/// Asks for the target time in minutes. A time that does not fit is refused with a message.
void SetExerciseTimeButton_Click(Editor& editor);

}  // namespace repvolta
