#pragma once

#include <string>
#include <vector>

namespace repvolta {

/// The file names of all words that instructions are joined from: "1.wav" ... "miles.wav".
std::vector<std::string> WordClips();

}  // namespace repvolta
