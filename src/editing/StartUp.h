#pragma once

#include "editing/Editor.h"
#include "platform/AudioOutputs.h"

namespace repvolta {

/// The start of the main window: enters the program directory, which the state names, leads through
/// the first set-up, loads the settings and the last workout, and fills the tabs. A later
/// step that fails is told and passed over. Throws FileError when the directory cannot be entered.
void Form_Load(const Editor& editor, AudioOutputs& outputs);

/// The guided set-up that asks for the folders and writes the first settings file; does nothing
/// when there is one, and returns false. The program directory must be current. When the settings
/// cannot be written it says so: the answers stay in memory.
bool FirstRunSetup(const Editor& editor);

/// Stores the selected workout in the settings; when they cannot be saved it says so. The window
/// then ends the program.
void ExitButton_Click(const Editor& editor);

}  // namespace repvolta
