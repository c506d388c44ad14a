#pragma once

#include <cstdint>
#include <string>

#include "mp3/RepvoltaMP3.h"

namespace repvolta {

/// The play time of an MP3 file in whole seconds; 0 for a blank path and for a file without a
/// frame. Throws what RepvoltaMP3 throws, and std::overflow_error above 32767 seconds.
std::int16_t GetPlayTime(const std::string& path);

/// The same of a file that has been examined already.
std::int16_t PlayTimeOf(const RepvoltaMP3& song);

}  // namespace repvolta
