#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace repvolta {

/// The clip that a file of a voice is, as the program spells it: "300.wav", "exercise/Squat.WAV";
/// "" when it is none. `path` is relative to the voice; neither case nor the way in which letters
/// with accents are written matters, nor blanks at the ends of the name.
std::string ClipOfPath(std::string_view path);

/// The files of a folder or ZIP file that a voice is taken from.
struct VoiceFiles {
  std::map<std::string, std::string> clips;  // the path of the file, by ClipOfPath
  std::vector<std::string> leftOut;          // the paths of files that are no clips
  std::string fault;                         // why this is not one voice, in a sentence; "": it is
};

/// Finds the voice among the files: it may lie in a folder, or in a folder of a folder. Hidden
/// files are not even left out.
VoiceFiles FindVoiceFiles(const std::vector<std::string>& paths);

}  // namespace repvolta
