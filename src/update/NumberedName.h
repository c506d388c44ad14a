#pragma once

#include <string>
#include <string_view>

#include "update/Encoder.h"

namespace repvolta {

// The names that an update gives to its files. They begin with the number of the file, which has at
// least three digits.

/// "RV001-Song.mp3".
std::string NumberedName(int number, std::string_view name);

/// "RV001-Instructions.mp3"; without an encoder the instruction stays a WAV file.
std::string InstructionName(int number, Encoding encoding);

/// The name of the copy of a song.
std::string SongCopyName(int number, const std::string& song);

}  // namespace repvolta
