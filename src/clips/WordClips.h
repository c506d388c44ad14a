#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace repvolta {

/// The file names of all words that instructions are joined from: "1.wav" ... "miles.wav".
std::vector<std::string> WordClips();

/// What the file of such a word says: "three hundred" for "300.wav", "kilometers per hour" for
/// "kph.wav". "" for any other name.
std::string WordsOfClip(std::string_view file);

}  // namespace repvolta
