#pragma once

#include "editing/Editor.h"
#include "platform/AudioOutputs.h"

namespace repvolta {

/// Starts the main window: finishes an interrupted restore, enters the state's program directory,
/// runs the first set-up, loads the settings and the last workout, and fills the tabs. Throws
/// RestoreUnfinished, and FileError when the directory cannot be entered; the failure of a later
/// step is shown, and the start continues.
void Form_Load(const Editor& editor, AudioOutputs& outputs);

/// Reads and shows everything again, because other files are there now. The workout in memory is
/// loaded if its file is there, else the one that was last chosen. Failures are shown.
void ReadAndShowAll(const Editor& editor);

/// The guided set-up, which asks for the folders and writes the first settings file. Returns false,
/// and does nothing, when there is a settings file. The program directory must be current. If the
/// settings cannot be written, a message says so and the answers stay in memory.
bool FirstRunSetup(const Editor& editor);

/// Stores the selected workout in the settings; a message reports when they cannot be saved. The
/// window then ends the program.
void ExitButton_Click(const Editor& editor);

}  // namespace repvolta
