#pragma once

#include "app/ProgramState.h"

namespace repvolta {

/// Fills the settings from the file in the current directory, or with the defaults when there is
/// none. Throws FileError when it cannot be read; the settings are then as they were, and are not
/// saved.
void LoadSettings(ProgramState& state);

/// Takes over what another program has put into the file in the current directory since it was
/// loaded or saved here; what was changed here since then stays. Throws FileError when it cannot be
/// read; the settings are then as they were.
void ReloadChangedSettings(ProgramState& state);

/// Makes the program directory current and writes the settings, all or nothing, with what
/// ReloadChangedSettings takes over. Throws FileError, also when what the file holds could not be
/// read, now or by LoadSettings: that is then kept.
void SaveSettings(ProgramState& state);

}  // namespace repvolta
