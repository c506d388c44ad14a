#pragma once

#include "editing/Editor.h"

namespace repvolta {

// The commands that edit the music of the current exercise. `row` is the selected row of MusicList,
// or -1. Each change is saved; docs/decisions/0001-errors.md says what happens when that fails.

/// Asks for a file and adds it after the others. Throws what GetPlayTime throws,
/// std::overflow_error when the total time does not fit and std::length_error when the path does
/// not; then nothing is added.
void AddMusicFileButton_Click(Editor& editor);

void MoveMusicFileUpListButton_Click(Editor& editor, int row);

/// Throws std::overflow_error when the total time does not fit; then nothing is removed.
void RemoveMusicFileButton_Click(Editor& editor, int row);

void RandomMusicCheckBox_Click(Editor& editor, CheckBox box);

/// Asks for the target time in minutes. A time that does not fit is refused with a message.
void SetExerciseTimeButton_Click(Editor& editor);

}  // namespace repvolta
