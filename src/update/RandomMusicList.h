#pragma once

#include <cstdint>
#include <string>

#include "app/ProgramState.h"
#include "platform/RandomNumbers.h"

namespace repvolta {

/// The music list has one full path of a music file a line. The program directory must be current.

/// Sets RandomMusicFiles to the number of lines of the music list; 0 when there is none. Throws
/// FileError.
void CountRandomMusicFiles(ProgramState& state);

/// Draws, in up to 101 attempts, one of the first `count` lines of the music list whose play time
/// lies between `minimum` and `maximum` seconds, both included. A file that cannot be read counts
/// as 0 seconds. Empty when none was found or there is no list. Throws FileError when the list
/// cannot be read.
std::string GetRandomMusicFile(std::int32_t count, std::int16_t minimum, std::int16_t maximum,
                               RandomNumbers& random);

}  // namespace repvolta
