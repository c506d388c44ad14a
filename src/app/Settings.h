#pragma once

#include "app/ProgramState.h"

namespace repvolta {

/// In the program directory.
inline constexpr const char* kSettingsFile = "settings.dat";

/// Fills the settings from the file in the current directory, or with the defaults when there is
/// none. Throws FileError when it cannot be read; the settings are then as they were, and are not
/// saved.
void LoadSettings(ProgramState& state);

/// Makes the program directory current and writes the settings, all or nothing. Throws FileError,
/// also when LoadSettings could not read what the file holds: that is then kept.
void SaveSettings(const ProgramState& state);

}  // namespace repvolta
