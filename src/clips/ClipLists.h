#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace repvolta {

/// A fault of a list, a recording or the voice, in words for the user.
class ClipError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The words of a clip, and its file below the folder of clips.
struct ClipWords {
  std::string file;   // "300.wav", "exercise/Bench Press.WAV"
  std::string words;  // "three hundred"
};

/// The clips of a word list: each line is a clip's name, blanks, the words; "#" begins a comment
/// line. Throws FileError; ClipError for a line without words or with a name that no file can have.
std::vector<ClipWords> ReadWordList(const std::string& path);

/// The name clips of an exercise name list, one name a line. Throws FileError.
std::vector<ClipWords> ReadNameList(const std::string& path);

}  // namespace repvolta
