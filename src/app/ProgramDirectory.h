#pragma once

#include <string>

namespace repvolta {

/// The folder that holds the settings, workouts and clips, with the separator at its end: the
/// executable's own folder when there is a folder "voice" in it, else "repvolta" in the user's data
/// folder (XDG_DATA_HOME, or .local/share in the home folder). Nothing is made here. Throws
/// FileError when the executable's folder cannot be looked into.
std::string FindProgramDirectory(const std::string& executable);

/// Readies a program directory in the user's data folder: makes it, and copies from the program's
/// share folder the clips, exercise lists and other files that it lacks; what is there is never
/// replaced. A directory beside the executable is left as it is. Throws FileError.
void FillProgramDirectory(const std::string& programDirectory, const std::string& executable);

/// Makes the link "lame.exe" to the system's encoder in the directory, unless it is there or no
/// encoder is on the PATH. A directory that cannot be written is left without.
void LinkEncoder(const std::string& programDirectory);

}  // namespace repvolta
