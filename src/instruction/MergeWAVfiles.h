#pragma once

#include <string>

#include "app/ProgressLog.h"

namespace repvolta {

/// Appends the samples of the WAV file `source` to the WAV file `target` and sets the sizes in its
/// header. Both have the 46-byte header and one sample format; neither is checked. Never throws
/// FileError, but logs: a missing file leaves `target` unchanged; after a file without samples, or
/// a step that fails, the next step runs (quirk 26).
void MergeWAVfiles(const std::string& target, const std::string& source, ProgressLog& log);

}  // namespace repvolta
