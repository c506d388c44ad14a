#pragma once

#include <string>

namespace repvolta {

/// The folder that holds the settings, workouts and clips, ending with the separator: the
/// executable's own folder if it contains a folder "voice", else "repvolta" in the user's data
/// folder (XDG_DATA_HOME, or .local/share in the home folder). Creates nothing. Throws FileError
/// when the executable's folder cannot be searched, and std::runtime_error without a home folder.
std::string FindProgramDirectory(const std::string& executable);

/// Creates a program directory in the user's data folder and copies the clips, exercise lists and
/// other files that it lacks from the program's share folder; existing files are never replaced.
/// Does nothing for a directory beside the executable. Throws FileError.
void FillProgramDirectory(const std::string& programDirectory, const std::string& executable);

/// The folder of the program's own clips, ending with the separator, which nothing ever changes:
/// "program-voice" beside the executable, else where the clips are installed. "" when there is
/// none.
std::string FindProgramVoice(const std::string& executable);

/// The folder of the word lists in other languages, ending with the separator: "words" beside the
/// executable, else where they are installed. "" when there is none.
std::string FindWordLists(const std::string& executable);

/// The folder of the user's guide as web pages, ending with the separator: "guide" beside the
/// executable, else where it is installed. "" when there is none.
std::string FindGuide(const std::string& executable);

/// Creates the link "lame.exe" to the system's encoder in the directory, unless the name leads to a
/// file already or there is no encoder on the PATH. Ignores a directory that cannot be written.
void LinkEncoder(const std::string& programDirectory);

}  // namespace repvolta
