#pragma once

#include <string>
#include <string_view>

#include "base/ProgressLog.h"

namespace repvolta {

/// Gives the MP3 file a fresh ID3v2 tag: our name as the artist, the workout's file name as the
/// album, the first six characters of the file's name and `title` as the title. Logs how it went.
/// An old tag that stays is logged, not thrown; throws what reading throws, and TagError.
void ProcessMP3tag(const std::string& path, std::string_view title,
                   std::string_view workoutFileName, ProgressLog& log);

}  // namespace repvolta
