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
  std::string words;  // "three hundred"; "" for a clip that says nothing
  int line = 0;       // of a word list
};

/// The clips of a word list: each line is a clip's name, blanks, the words; or with a tab between
/// both, when the name may hold blanks. "exercise/" before the name makes it the name of an
/// exercise. The words "-" say nothing; "#" begins a comment line. Throws FileError; ClipError for
/// a line without words or with a name that no file can have.
std::vector<ClipWords> ReadWordList(const std::string& path);

/// The name clips of an exercise name list, one name a line. Throws FileError.
std::vector<ClipWords> ReadNameList(const std::string& path);

/// What a person should know of the word list at `path`, a line each: clips that the program never
/// says, clips that are there twice, and clips that are missing.
std::vector<std::string> RemarksOn(const std::vector<ClipWords>& clips, const std::string& path);

}  // namespace repvolta
