#pragma once

#include "editing/Editor.h"

namespace repvolta {

// The commands of the settings tab, and the check boxes of the settings and options. Each change is
// shown and saved; docs/decisions/0001-errors.md says what happens when that fails.

/// Asks for the music folder and compiles the random music list again. Throws std::length_error
/// when the path does not fit, UpdateStopped.
void MusicPathButton_Click(Editor& editor);

/// Throws std::length_error when the path does not fit.
void OutputPathButton_Click(Editor& editor);

/// Asks for the default exercise time in minutes and saves the workout too. Throws
/// std::overflow_error, and changes nothing, when the time does not fit.
void ExerciseTimeButton_Click(Editor& editor);

/// Rebuilds the random music list, all or nothing, and counts it. Throws UpdateStopped.
void CompileMusicList_Click(Editor& editor);

// The voice keeps its rate and its volume until the next start (quirk 112).
void RateSldr_Change(Editor& editor, int value);
void VolumeSldr_Change(Editor& editor, int value);

/// The chosen voice speaks from now on.
void VoiceCB_Click(Editor& editor, int index);

void FormatCB_Change(Editor& editor, int index);
void IncludeWeightValuesCheck_Click(Editor& editor, CheckBox box);
void AutoLoadPLaylistCheckbox_Click(Editor& editor, CheckBox box);
void PlayerPlayListCheck_Click(Editor& editor, CheckBox box);

}  // namespace repvolta
