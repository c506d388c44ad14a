#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "app/ProgramState.h"
#include "platform/RandomNumbers.h"

namespace repvolta {

/// The music list has one full path of a music file a line. The program directory must be current.

/// Rebuilds the music list, all or nothing: every file below `musicPath` whose name ends in ".mp3"
/// in any case. Links to folders are not followed, folders that cannot be read are skipped, and so
/// are paths with a line break. An empty path or one that is no folder gives an empty list.
/// `whileListing` is called now and then. Throws FileError when the list cannot be written.
void CompileMusicList(const std::string& musicPath, const std::function<void()>& whileListing = {});

/// Sets RandomMusicFiles to the number of lines of the music list; 0 when there is none. Throws
/// FileError.
void CountRandomMusicFiles(ProgramState& state);

/// Draws a file whose play time, in seconds, lies in the range, ends included, in up to 101
/// attempts among the `count` lines of the music list. Empty when none was found or there is no
/// list. A file that cannot be read counts as 0 seconds. Throws FileError when the list cannot be
/// read.
std::string GetRandomMusicFile(std::int32_t count, std::int16_t minimum, std::int16_t maximum,
                               RandomNumbers& random);

}  // namespace repvolta
