#pragma once

#include "app/ProgramState.h"

namespace repvolta {

/// Reads the settings from the file in the current directory; without a file they get their
/// defaults. Throws FileError when the file cannot be read; the settings are then unchanged, and
/// SaveSettings refuses to overwrite the file.
void LoadSettings(ProgramState& state);

/// If another program has changed the file since it was loaded or saved here, takes over its
/// settings, except for those that were changed here since then. Throws FileError, and changes
/// nothing, when the file cannot be read.
void ReloadChangedSettings(ProgramState& state);

/// Makes the program directory current, calls ReloadChangedSettings and writes the settings, all or
/// nothing. Throws FileError; a file that could not be read, now or by LoadSettings, is kept.
void SaveSettings(ProgramState& state);

}  // namespace repvolta
