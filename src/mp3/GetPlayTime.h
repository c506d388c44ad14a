#pragma once

#include <cstdint>
#include <string>

namespace repvolta {

/// The play time of an MP3 file in whole seconds; 0 for a blank path and for a file without a
/// frame. Throws what RepvoltaMP3 throws, and std::overflow_error above 32767 seconds.
std::int16_t GetPlayTime(const std::string& path);

}  // namespace repvolta
